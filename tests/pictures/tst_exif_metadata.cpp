#include "ProgramRun.h"
#include "exif_metadata.h"
#include "picture_writer.h"

#include <QColorSpace>
#include <QImageReader>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdlib>
#include <cstring>

namespace {

void add(ExifData *data, ExifIfd ifd, ExifTag tag, ExifFormat format, unsigned long components,
         const QByteArray &bytes)
{
    ExifEntry *entry = exif_entry_new();
    exif_content_add_entry(data->ifd[ifd], entry);
    entry->tag = tag;
    entry->format = format;
    entry->components = components;
    entry->size = static_cast<unsigned>(bytes.size());
    entry->data = static_cast<unsigned char *>(std::malloc(entry->size));
    std::memcpy(entry->data, bytes.constData(), entry->size);
    exif_entry_unref(entry);
}

/// What a camera on its side writes: big-endian, with a thumbnail and a place.
QByteArray cameraBlock()
{
    const exif::Data data(exif_data_new());
    exif_data_set_byte_order(data.get(), EXIF_BYTE_ORDER_MOTOROLA);
    add(data.get(), EXIF_IFD_0, EXIF_TAG_MAKE, EXIF_FORMAT_ASCII, 6, QByteArray("Maker", 6));
    add(data.get(), EXIF_IFD_0, EXIF_TAG_ORIENTATION, EXIF_FORMAT_SHORT, 1, QByteArray("\0\6", 2));
    add(data.get(), EXIF_IFD_EXIF, EXIF_TAG_EXPOSURE_TIME, EXIF_FORMAT_RATIONAL, 1,
        QByteArray("\0\0\0\1\0\0\0\x3C", 8));
    add(data.get(), EXIF_IFD_EXIF, EXIF_TAG_PIXEL_X_DIMENSION, EXIF_FORMAT_LONG, 1,
        QByteArray("\0\0\3\xE7", 4));
    add(data.get(), EXIF_IFD_EXIF, EXIF_TAG_SUBJECT_AREA, EXIF_FORMAT_SHORT, 2,
        QByteArray("\0\1\0\2", 4));
    add(data.get(), EXIF_IFD_GPS, static_cast<ExifTag>(EXIF_TAG_GPS_LATITUDE), EXIF_FORMAT_RATIONAL,
        3, QByteArray("\0\0\0\x2F\0\0\0\1\0\0\0\7\0\0\0\1\0\0\0\5\0\0\0\1", 24));
    data->data = static_cast<unsigned char *>(std::malloc(100));
    std::memset(data->data, 7, 100);
    data->size = 100;
    unsigned char *bytes = nullptr;
    unsigned length = 0;
    exif_data_save_data(data.get(), &bytes, &length);
    const QByteArray block(reinterpret_cast<char *>(bytes), static_cast<int>(length));
    std::free(bytes);
    return block.mid(6);
}

/// An entry in words, empty when the block does not have it.
QByteArray valueOf(const QByteArray &block, ExifIfd ifd, int tag)
{
    const exif::Data data = exif::parse(block);
    ExifEntry *entry =
        data ? exif_content_get_entry(data->ifd[ifd], static_cast<ExifTag>(tag)) : nullptr;
    if (!entry)
        return {};
    QByteArray text(200, '\0');
    exif_entry_get_value(entry, text.data(), static_cast<unsigned>(text.size()));
    return text.constData();
}

void verifyMergedBlock(const QByteArray &block)
{
    QCOMPARE(valueOf(block, EXIF_IFD_0, EXIF_TAG_MAKE), QByteArray("Maker"));
    QCOMPARE(valueOf(block, EXIF_IFD_0, EXIF_TAG_ORIENTATION), QByteArray("Top-left"));
    QCOMPARE(valueOf(block, EXIF_IFD_EXIF, EXIF_TAG_EXPOSURE_TIME), QByteArray("1/60 sec."));
    QCOMPARE(valueOf(block, EXIF_IFD_EXIF, EXIF_TAG_PIXEL_X_DIMENSION), QByteArray("30"));
    QCOMPARE(valueOf(block, EXIF_IFD_EXIF, EXIF_TAG_PIXEL_Y_DIMENSION), QByteArray("40"));
    QCOMPARE(valueOf(block, EXIF_IFD_EXIF, EXIF_TAG_SUBJECT_AREA), QByteArray());
    QVERIFY(valueOf(block, EXIF_IFD_GPS, EXIF_TAG_GPS_LATITUDE).startsWith("47"));
    const exif::Data data = exif::parse(block);
    QCOMPARE(data->size, 0U);
    QCOMPARE(data->ifd[EXIF_IFD_1]->count, 0U);
}

QImage picture(QSize size)
{
    QImage filled(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            filled.setPixel(x, y, qRgb(x * 5, y * 5, 90));
    }
    return filled;
}

} // namespace

class TestExifMetadata : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;

    static void addFormats()
    {
        QTest::addColumn<QString>("suffix");
        for (const char *suffix : {"jpg", "png", "tif"})
            QTest::newRow(suffix) << QString::fromLatin1(suffix);
    }

    /// A file as the camera left it: stored on its side, 40 x 30.
    QString saveShot(const QString &name)
    {
        WriteOptions options;
        options.exif = cameraBlock();
        options.mayReplace = true;
        const QString path = folder.filePath(name);
        const WriteResult result =
            writePicture(picture({40, 30}), path, *formatOfSuffix(path), options);
        return result.error == OutputFile::Error::None ? path : QString();
    }

private slots:
    void forMergedPicture_resetsWhatNoLongerHolds()
    {
        verifyMergedBlock(exif::forMergedPicture(cameraBlock(), {30, 40}));
    }

    void forMergedPicture_nothingOrRubbish_givesNothing()
    {
        QCOMPARE(exif::forMergedPicture({}, {30, 40}), QByteArray());
        QCOMPARE(exif::forMergedPicture("rubbish that is no block at all", {30, 40}), QByteArray());
        QCOMPARE(exif::forMergedPicture(cameraBlock().left(11), {30, 40}), QByteArray());
    }

    void forMergedPicture_damagedAnywhere_isSafe()
    {
        const QByteArray block = cameraBlock();
        for (int i = 0; i < block.size(); ++i) {
            QByteArray damaged = block;
            damaged[i] = '\xFF';
            exif::forMergedPicture(damaged, {30, 40});
            exif::forMergedPicture(block.left(i), {30, 40});
        }
    }

    void read_fileWithoutBlock_givesNothing()
    {
        for (const char *format : {"png", "jpeg", "bmp"}) {
            const QString path = folder.filePath(QStringLiteral("plain"));
            QVERIFY(picture({8, 8}).save(path, format));
            QCOMPARE(exif::read(path), QByteArray());
        }
        QCOMPARE(exif::read(folder.filePath(QStringLiteral("none"))), QByteArray());
    }

    void writtenBlock_isReadBack_data() { addFormats(); }
    void writtenBlock_isReadBack()
    {
        QFETCH(QString, suffix);
        const QString path = saveShot("shot." + suffix);
        QVERIFY(!path.isEmpty());
        const QByteArray block = exif::read(path);
        QCOMPARE(valueOf(block, EXIF_IFD_0, EXIF_TAG_MAKE), QByteArray("Maker"));
        QCOMPARE(valueOf(block, EXIF_IFD_EXIF, EXIF_TAG_EXPOSURE_TIME), QByteArray("1/60 sec."));
        QCOMPARE(QImage(path).convertToFormat(QImage::Format_RGB32).pixel(3, 0) == 0, false);
    }

    void merge_keepsTheFirstPicturesMetadata_data() { addFormats(); }
    void merge_keepsTheFirstPicturesMetadata()
    {
        QFETCH(QString, suffix);
        QVERIFY(!saveShot("1.jpg").isEmpty());
        QVERIFY(picture({30, 40}).save(folder.filePath("2.png")));
        const ProgramRun merged = runProgramIn(
            folder.path(), {"merge", "--no-align", "1.jpg", "2.png", "-o", "out." + suffix});
        QCOMPARE(merged.errors, QByteArray());
        QCOMPARE(merged.exitCode, 0);
        const QString out = folder.filePath("out." + suffix);
        verifyMergedBlock(exif::read(out));
        QImageReader reader(out);
        reader.setAutoTransform(true);
        QCOMPARE(reader.read().size(), QSize(30, 40));
    }

    void merge_ofOtherShots_keepsTheirMetadata_data() { addFormats(); }
    void merge_ofOtherShots_keepsTheirMetadata()
    {
        QFETCH(QString, suffix);
        const QString first = saveShot("3." + suffix);
        const QString second = saveShot("4." + suffix);
        QVERIFY(!first.isEmpty() && !second.isEmpty());
        const ProgramRun merged = runProgramIn(
            folder.path(), {"merge", "--force", "--no-align", first, second, "-o", "o.jpg"});
        QCOMPARE(merged.errors, QByteArray());
        QCOMPARE(merged.exitCode, 0);
        const QByteArray block = exif::read(folder.filePath("o.jpg"));
        QCOMPARE(valueOf(block, EXIF_IFD_0, EXIF_TAG_MAKE), QByteArray("Maker"));
        QCOMPARE(valueOf(block, EXIF_IFD_0, EXIF_TAG_ORIENTATION), QByteArray("Top-left"));
        QCOMPARE(valueOf(block, EXIF_IFD_0, EXIF_TAG_STRIP_OFFSETS), QByteArray());
    }

    void merge_keepsColourProfileAndResolution_data() { addFormats(); }
    void merge_keepsColourProfileAndResolution()
    {
        QFETCH(QString, suffix);
        QImage first = picture({30, 40});
        first.setColorSpace(QColorSpace::AdobeRgb);
        first.setDotsPerMeterX(11811);
        first.setDotsPerMeterY(11811);
        QVERIFY(first.save(folder.filePath("1.png")));
        QVERIFY(picture({30, 40}).save(folder.filePath("2.png")));
        const QString out = folder.filePath("profile." + suffix);
        QCOMPARE(runProgramIn(folder.path(), {"merge", "1.png", "2.png", "-o", out}).exitCode, 0);
        const QImage written(out);
        QCOMPARE(written.colorSpace().primaries(), QColorSpace::Primaries::AdobeRgb);
        QVERIFY(std::abs(written.dotsPerMeterX() - 11811) <= 1);
    }
};

QTEST_GUILESS_MAIN(TestExifMetadata)
#include "tst_exif_metadata.moc"
