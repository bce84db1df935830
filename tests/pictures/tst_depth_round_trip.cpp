#include "picture_reader.h"
#include "picture_writer.h"

#include <QRgba64>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// All levels, in each channel at another place.
QImage ramp()
{
    QImage picture(256, 256, QImage::Format_RGBX64);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            const auto level = quint16(y * 256 + x);
            reinterpret_cast<QRgba64 *>(picture.scanLine(y))[x] =
                QRgba64::fromRgba64(level, quint16(level * 40503U), quint16(~level), 0xFFFF);
        }
    }
    return picture;
}

} // namespace

/// What is written with 16 bits is read with all of them.
class TestDepthRoundTrip : public QObject
{
    Q_OBJECT

private slots:
    void ramp_throughFile_keepsEveryLevel_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("compression");
        QTest::addColumn<int>("effort");
        for (const int effort : {1, 6, 9})
            QTest::addRow("PNG, effort %d", effort) << "ramp.png" << 0 << effort;
        QTest::newRow("TIFF, LZW") << "ramp.tif" << int(TiffCompression::Lzw) << 1;
        QTest::newRow("TIFF, none") << "ramp.tif" << int(TiffCompression::None) << 1;
        QTest::newRow("TIFF, Deflate") << "ramp.tif" << int(TiffCompression::Deflate) << 9;
    }

    void ramp_throughFile_keepsEveryLevel()
    {
        QFETCH(QString, name);
        QFETCH(int, compression);
        QFETCH(int, effort);
        const QTemporaryDir folder;
        const QString path = folder.filePath(name);
        WriteOptions how;
        how.tiffCompression = TiffCompression(compression);
        how.effort = effort;
        QVERIFY(picture::write(ramp(), path, *picture::formatOfSuffix(name), how).reason.isEmpty());
        for (const auto colours : {ReadOptions::Colours::AsStored, ReadOptions::Colours::True}) {
            ReadOptions options;
            options.depth = ReadOptions::Depth::AsStored;
            options.colours = colours;
            const QImage back = picture::read(path, options).image;
            QCOMPARE(back.format(), QImage::Format_RGBX64);
            const QImage expected = ramp();
            for (int y = 0; y < 256; ++y) {
                for (int x = 0; x < 256; ++x)
                    QVERIFY(reinterpret_cast<const QRgba64 *>(back.constScanLine(y))[x] ==
                            reinterpret_cast<const QRgba64 *>(expected.constScanLine(y))[x]);
            }
        }
    }

    /// JPEG holds one colour all over nearly exactly.
    void level_throughJpeg_isRounded()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("level.jpg");
        WriteOptions how;
        how.quality = 100;
        how.mayReplace = true;
        for (int level = 100; level < 0x10000; level += 129) {
            QImage picture(8, 8, QImage::Format_RGBX64);
            picture.fill(QColor::fromRgba64(quint16(level), quint16(level), quint16(level)));
            QVERIFY(picture::write(picture, path, PictureFormat::Jpeg, how).reason.isEmpty());
            QCOMPARE(qRed(picture::read(path).image.pixel(3, 3)), (level + 128) / 257);
        }
    }
};

QTEST_GUILESS_MAIN(TestDepthRoundTrip)
#include "tst_depth_round_trip.moc"
