#include "picture_decoder.h"

#include "picture_makers.h"

#include <QColorSpace>
#include <QtTest>

#include <atomic>
#include <cstdio>
#include <vector>

#include <jpeglib.h>

using namespace makers;

namespace {

std::atomic<int> libraryMessages = 0;

QString pictureFolder()
{
    return qEnvironmentVariable("VESK_TEST_PICTURES");
}

QByteArray progressiveJpeg(const QImage &picture)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(true);
    return writer.write(picture) ? buffer.data() : QByteArray();
}

/// The segment by which a camera tells the orientation, for after the first two bytes.
QByteArray orientationSegment(int orientation)
{
    QByteArray segment = QByteArray::fromHex("ffe1002245786966000049492a0008000000"
                                             "0100120103000100000000000000"
                                             "00000000");
    segment[28] = static_cast<char>(orientation);
    return segment;
}

QByteArray withOrientation(const QByteArray &jpeg, int orientation)
{
    return jpeg.left(2) + orientationSegment(orientation) + jpeg.mid(2);
}

using Configure = void (*)(jpeg_compress_struct &codec);

/// A JPEG as Qt does not write it. channels: 1, 3 or 4 (inks).
QByteArray jpegFile(int width, int height, int channels, Configure configure)
{
    jpeg_compress_struct codec = {};
    jpeg_error_mgr errors;
    codec.err = jpeg_std_error(&errors);
    jpeg_create_compress(&codec);
    unsigned char *bytes = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&codec, &bytes, &length);
    codec.image_width = static_cast<JDIMENSION>(width);
    codec.image_height = static_cast<JDIMENSION>(height);
    codec.input_components = channels;
    codec.in_color_space = channels == 1 ? JCS_GRAYSCALE : channels == 3 ? JCS_RGB : JCS_CMYK;
    jpeg_set_defaults(&codec);
    configure(codec);
    jpeg_start_compress(&codec, TRUE);
    std::vector<JSAMPLE> row(static_cast<size_t>(width * channels));
    while (codec.next_scanline < codec.image_height) {
        for (size_t i = 0; i < row.size(); ++i)
            row[i] = static_cast<JSAMPLE>(i * 7 + codec.next_scanline * 3);
        JSAMPROW rows = row.data();
        jpeg_write_scanlines(&codec, &rows, 1);
    }
    jpeg_finish_compress(&codec);
    const QByteArray file(reinterpret_cast<char *>(bytes), static_cast<int>(length));
    jpeg_destroy_compress(&codec);
    std::free(bytes);
    return file;
}

void asUsual(jpeg_compress_struct &)
{
}

QByteArray inkJpeg(int width, int height)
{
    return jpegFile(width, height, 4, asUsual);
}

} // namespace

class TestJpegDecoder : public QObject
{
    Q_OBJECT

private:
    const Folder folder;

    DecodeError errorOf(const QByteArray &bytes)
    {
        return picture::decode(folder.save(QStringLiteral("tried"), bytes)).error;
    }

private slots:
    void initTestCase() { QVERIFY(folder.isValid()); }

    void decode_jpeg_equalsQt_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QImage colour = scene(61, 37);
        for (int orientation = 1; orientation <= 8; ++orientation) {
            const auto rowName = [&](const char *kind) {
                return QStringLiteral("%1, orientation %2")
                    .arg(QLatin1String(kind))
                    .arg(orientation);
            };
            QTest::newRow(qPrintable(rowName("colour")))
                << withOrientation(encoded(colour, "jpeg"), orientation);
            QTest::newRow(qPrintable(rowName("grey"))) << withOrientation(
                encoded(scene(35, 64, QImage::Format_Grayscale8), "jpeg"), orientation);
            QTest::newRow(qPrintable(rowName("inks")))
                << withOrientation(inkJpeg(33, 17), orientation);
        }
        QTest::newRow("orientation out of range") << withOrientation(encoded(colour, "jpeg"), 9);
        QTest::newRow("progressive") << progressiveJpeg(colour);
        QTest::newRow("best quality") << encoded(colour, "jpeg", 0);
        QTest::newRow("one pixel") << encoded(scene(1, 1), "jpeg");
        QTest::newRow("one pixel on its side") << withOrientation(encoded(scene(1, 1), "jpeg"), 6);
        QTest::newRow("one row on its side") << withOrientation(encoded(scene(50, 1), "jpeg"), 8);
        QTest::newRow("one column on its side")
            << withOrientation(encoded(scene(1, 50), "jpeg"), 5);
        QTest::newRow("rows of whole strips") << withOrientation(encoded(scene(16, 32), "jpeg"), 7);
    }

    void decode_jpeg_equalsQt()
    {
        QFETCH(QByteArray, bytes);
        const QString path = folder.save(QStringLiteral("picture.jpg"), bytes);
        const QImage expected = byQt(path);
        QVERIFY(!expected.isNull());
        const DecodedPicture decoded = picture::decode(path);
        QCOMPARE(int(decoded.error), int(DecodeError::None));
        QCOMPARE(decoded.image.format(), expected.format());
        QCOMPARE(decoded.image, expected);
    }

    void decode_jpeg_keepsColourProfileAndResolution()
    {
        QImage picture = scene(8, 8);
        picture.setColorSpace(QColorSpace::AdobeRgb);
        picture.setDotsPerMeterX(11811);
        picture.setDotsPerMeterY(5906);
        const QString path = folder.save(QStringLiteral("profile.jpg"), encoded(picture, "jpeg"));
        const QImage expected = byQt(path);
        const QImage decoded = picture::decode(path).image;
        QVERIFY(expected.colorSpace().isValid());
        QCOMPARE(decoded.colorSpace(), expected.colorSpace());
        QCOMPARE(decoded.dotsPerMeterX(), expected.dotsPerMeterX());
        QCOMPARE(decoded.dotsPerMeterY(), expected.dotsPerMeterY());
    }

    void decode_jpegCutAnywhere_isWholeOrRefused_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("endMarkerIsNeeded");
        const QImage colour = scene(29, 19);
        const auto row = [](const char *name, int channels, Configure configure) -> QTestData & {
            return QTest::newRow(name) << jpegFile(29, 19, channels, configure);
        };
        QTest::newRow("by Qt") << encoded(colour, "jpeg") << false;
        QTest::newRow("progressive, by Qt") << progressiveJpeg(colour) << false;
        row("colour", 3, asUsual) << false;
        row("grey", 1, asUsual) << false;
        row("inks", 4, asUsual) << false;
        row("progressive, grey", 1, [](jpeg_compress_struct &codec) {
            jpeg_simple_progression(&codec);
        }) << false;
        row("restart markers", 3, [](jpeg_compress_struct &codec) { codec.restart_interval = 2; })
            << false;
        row("a scan for each component", 3, [](jpeg_compress_struct &codec) {
            static jpeg_scan_info scans[3] = {
                {1, {0}, 0, 63, 0, 0}, {1, {1}, 0, 63, 0, 0}, {1, {2}, 0, 63, 0, 0}};
            codec.scan_info = scans;
            codec.num_scans = 3;
        }) << false;
        row("arithmetic", 3, [](jpeg_compress_struct &codec) { codec.arith_code = TRUE; }) << true;
    }

    /// A reader that cannot know fills up with grey: every picture must be the whole one.
    void decode_jpegCutAnywhere_isWholeOrRefused()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, endMarkerIsNeeded);
        const QImage whole = picture::decode(folder.save(QStringLiteral("whole"), bytes)).image;
        QVERIFY(!whole.isNull());
        QVERIFY(bytes.endsWith("\xFF\xD9"));
        int shortest = int(bytes.size());
        for (int length = int(bytes.size()) - 1; length > 0; --length) {
            const QString path = folder.save(QStringLiteral("cut"), bytes.left(length));
            const DecodedPicture decoded = picture::decode(path);
            if (decoded.error != DecodeError::None)
                continue;
            QVERIFY2(decoded.image == whole, qPrintable(QString::number(length)));
            shortest = length;
        }
        if (endMarkerIsNeeded)
            QCOMPARE(shortest, int(bytes.size()));
        else // the last bits may be padding, a byte of its own at most
            QVERIFY(shortest <= bytes.size() - 2 && shortest >= bytes.size() - 3);
    }

    void decode_truncatedJpeg_printsNothing()
    {
        const QByteArray bytes = encoded(scene(61, 37), "jpeg");
        const QtMessageHandler handler = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &) { ++libraryMessages; });
        libraryMessages = 0;
        const DecodeError error = errorOf(bytes.left(bytes.size() / 2));
        qInstallMessageHandler(handler);
        QCOMPARE(int(error), int(DecodeError::Damaged));
        QCOMPARE(libraryMessages.load(), 0);
    }

    void decode_jpegWithBrokenScan_isDamaged()
    {
        QByteArray bytes = encoded(scene(200, 200), "jpeg");
        for (int i = bytes.size() / 2; i < bytes.size() / 2 + 60; ++i)
            bytes[i] = '\xFF';
        QCOMPARE(int(errorOf(bytes)), int(DecodeError::Damaged));
    }

    void decode_jpegWithHarmlessOddities_isAPicture()
    {
        const QByteArray bytes = encoded(scene(61, 37), "jpeg");
        const QByteArray padded = bytes.left(2) + QByteArray("\0\0\0", 3) + bytes.mid(2);
        QCOMPARE(int(errorOf(bytes + "appended by a phone")), int(DecodeError::None));
        QCOMPARE(
            int(errorOf(bytes.left(2) + "\xFF\xFE" + QByteArray("\0\x04hi", 4) + bytes.mid(2))),
            int(DecodeError::None));
        // Stray bytes between segments are skipped with a warning; the third byte stays a marker.
        const int secondSegment = 2 + 2 + 16;
        QCOMPARE(int(errorOf(bytes.left(secondSegment) + QByteArray("\0\0", 2) +
                             bytes.mid(secondSegment))),
                 int(DecodeError::None));
    }

    void decode_jpegHeaderOnly_isDamaged()
    {
        QCOMPARE(int(errorOf("\xFF\xD8\xFF")), int(DecodeError::Damaged));
        QCOMPARE(int(errorOf(QByteArray("\xFF\xD8\xFF") + "no such thing at all")),
                 int(DecodeError::Damaged));
    }

    void decode_hugeHeaderOfSmallFile_isRefused()
    {
        // 60,000 x 60,000 pixels are 14 GB: refused although the file ends after the header.
        QByteArray bytes = encoded(scene(61, 37), "jpeg");
        const int frame = bytes.indexOf(QByteArray("\xFF\xC0\0\x11\x08", 5));
        QVERIFY(frame > 0);
        for (const int at : {frame + 5, frame + 7}) {
            bytes[at] = static_cast<char>(60000 >> 8);
            bytes[at + 1] = static_cast<char>(60000 & 255);
        }
        QCOMPARE(int(errorOf(bytes)), int(DecodeError::TooLarge));
    }

    void decode_photographOnItsSide_isUprightAndEqualsQt()
    {
        const QString path = pictureFolder() + QStringLiteral("/IMG_3871.jpeg");
        if (!QFile::exists(path))
            QSKIP("the photographs are not here");
        const DecodedPicture decoded = picture::decode(path);
        QCOMPARE(decoded.reason, QString());
        QCOMPARE(decoded.image.size(), QSize(4032, 3024));
        QVERIFY(decoded.image == byQt(path));
    }
};

QTEST_GUILESS_MAIN(TestJpegDecoder)
#include "tst_jpeg_decoder.moc"
