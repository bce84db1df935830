#include "picture_reader.h"

#include "AllocationLimitLift.h"
#include "dng_writer.h"

#include <QImageReader>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>

namespace {

QImage scene(int width, int height)
{
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            picture.setPixel(x, y, qRgb(x * 255 / width, y * 255 / height, (x + y) % 97));
    }
    return picture;
}

ReadOptions limitedTo(qint64 pixels)
{
    ReadOptions options;
    options.pixelLimit = pixels;
    return options;
}

/// Qt's own limit, set for one test.
class QtLimit
{
public:
    explicit QtLimit(int megabytes) { QImageReader::setAllocationLimit(megabytes); }
    ~QtLimit() { QImageReader::setAllocationLimit(usual); }

private:
    const int usual = QImageReader::allocationLimit();
};

} // namespace

class TestPictureReader : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;

    QString save(const QString &name, const QImage &picture)
    {
        const QString path = folder.filePath(name);
        return picture.save(path) ? path : QString();
    }

    QString saveRaw(const QString &name)
    {
        DngRecipe recipe;
        recipe.orientation = 6;
        const QString path = folder.filePath(name);
        return writeDng(path, recipe) ? path : QString();
    }

private slots:
    void initTestCase() { QVERIFY(folder.isValid()); }

    void read_rawFile_isConvertedUpright()
    {
        const DecodedPicture read = picture::read(saveRaw(QStringLiteral("a.dng")));
        QCOMPARE(read.reason, QString());
        QVERIFY(read.image.height() > read.image.width());
    }

    void read_rawFileUnderAPictureSuffix_goesByContent()
    {
        QCOMPARE(picture::read(saveRaw(QStringLiteral("raw.tif"))).image,
                 picture::read(saveRaw(QStringLiteral("raw.dng"))).image);
    }

    void read_callersConverter_isAskedForRawFilesOnly()
    {
        QStringList asked;
        const auto convert = [&asked](const QString &path, const ReadOptions &) {
            asked.append(path);
            return DecodedPicture{scene(3, 2), DecodeError::None, {}};
        };
        const QString raw = saveRaw(QStringLiteral("mine.dng"));
        QCOMPARE(picture::read(raw, {}, convert).image, scene(3, 2));
        const QString ordinary = save(QStringLiteral("ordinary.png"), scene(5, 4));
        QCOMPARE(picture::read(ordinary, {}, convert).image.size(), QSize(5, 4));
        QCOMPARE(asked, QStringList{raw});
    }

    void read_callersConverterRunsOutOfMemory_saysSo()
    {
        const auto convert = [](const QString &, const ReadOptions &) -> DecodedPicture {
            throw std::bad_alloc();
        };
        const DecodedPicture read = picture::read(saveRaw(QStringLiteral("m.dng")), {}, convert);
        QCOMPARE(read.error, DecodeError::NoMemory);
        QCOMPARE(read.reason, QStringLiteral("not enough memory"));
    }

    void read_rawAboveTheLimit_isTooLarge()
    {
        const QString path = saveRaw(QStringLiteral("large.dng"));
        const QSize size = picture::read(path).image.size();
        const DecodedPicture refused = picture::read(path, limitedTo(100));
        QCOMPARE(refused.error, DecodeError::TooLarge);
        QVERIFY(!refused.reason.isEmpty());
        QCOMPARE(picture::read(path, limitedTo(4 * size.width() * size.height())).error,
                 DecodeError::None);
    }

    void read_rawCancelled_saysSo()
    {
        const std::atomic<bool> cancelled{true};
        ReadOptions options;
        options.cancelled = &cancelled;
        const DecodedPicture read = picture::read(saveRaw(QStringLiteral("c.dng")), options);
        QCOMPARE(read.error, DecodeError::Cancelled);
        QVERIFY(read.image.isNull());
    }

    void read_rawTruncated_isDamaged()
    {
        const QString path = saveRaw(QStringLiteral("cut.dng"));
        QFile file(path);
        QVERIFY(file.resize(file.size() - 100));
        QCOMPARE(picture::read(path).error, DecodeError::Damaged);
    }

    void read_side_fitsAndNeverEnlarges_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QSize>("expected");
        QTest::newRow("much larger") << QSize(1600, 800) << QSize(100, 50);
        QTest::newRow("a little larger") << QSize(101, 50) << QSize(100, 49);
        QTest::newRow("as large") << QSize(40, 100) << QSize(40, 100);
        QTest::newRow("smaller") << QSize(30, 20) << QSize(30, 20);
        QTest::newRow("a line") << QSize(1700, 1) << QSize(100, 1);
    }

    void read_side_fitsAndNeverEnlarges()
    {
        QFETCH(QSize, size);
        QFETCH(QSize, expected);
        ReadOptions options;
        options.side = 100;
        const QImage picture = scene(size.width(), size.height());
        for (const char *name : {"side.jpg", "side.png", "side.tif", "side.bmp"}) {
            const QString path = save(QLatin1String(name), picture);
            const DecodedPicture read = picture::read(path, options);
            QCOMPARE(read.reason, QString());
            QVERIFY2(read.image.size() == expected, name);
        }
    }

    void read_sideOfAJpeg_looksLikeTheWholeMadeSmall()
    {
        ReadOptions options;
        options.side = 64;
        const QImage picture = scene(640, 512);
        const QString path = folder.filePath(QStringLiteral("whole.jpg"));
        QVERIFY(picture.save(path, "JPEG", 100));
        const QImage small = picture::read(path, options).image;
        const QImage expected =
            picture.scaled(64, 64, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        QCOMPARE(small.size(), expected.size());
        for (const QPoint at : {QPoint(3, 3), QPoint(60, 5), QPoint(31, 25), QPoint(5, 48)}) {
            QVERIFY(qAbs(qRed(small.pixel(at)) - qRed(expected.pixel(at))) < 12);
            QVERIFY(qAbs(qGreen(small.pixel(at)) - qGreen(expected.pixel(at))) < 12);
        }
    }

    void read_pictureBeyondQtsOwnLimit_isRead_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"a.png", "a.bmp", "a.tif", "a.ppm", "a.jpg"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void read_pictureBeyondQtsOwnLimit_isRead()
    {
        QFETCH(QString, name);
        const QString path = save(name, scene(800, 700)); // 2.2 MB
        const QtLimit limit(1);
        if (!name.endsWith(QLatin1String("ppm")))
            QVERIFY(QImageReader(path).read().isNull());
        const DecodedPicture read = picture::read(path);
        QCOMPARE(read.reason, QString());
        QCOMPARE(read.image.size(), QSize(800, 700));
        QCOMPARE(QImageReader::allocationLimit(), 1); // the host's, as it was
    }

    void allocationLimitLift_severalAtOnce_lastOneRestores()
    {
        const QtLimit limit(7);
        {
            const AllocationLimitLift first;
            {
                const AllocationLimitLift second;
                QCOMPARE(QImageReader::allocationLimit(), 0);
            }
            QCOMPARE(QImageReader::allocationLimit(), 0);
        }
        QCOMPARE(QImageReader::allocationLimit(), 7);
    }

    void allocationLimitLift_limitChangedMeanwhile_isLeftAlone()
    {
        const QtLimit limit(7);
        {
            const AllocationLimitLift lift;
            QImageReader::setAllocationLimit(9);
        }
        QCOMPARE(QImageReader::allocationLimit(), 9);
    }
};

QTEST_GUILESS_MAIN(TestPictureReader)
#include "tst_picture_reader.moc"
