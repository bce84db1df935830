#include "ProgramRun.h"
#include "byte_order.h"
#include "camera_block.h"
#include "dng_writer.h"
#include "exif_metadata.h"
#include "jpeg_encoder.h"
#include "picture_writer.h"
#include "png_encoder.h"
#include "tiff_encoder.h"

#include <QColorSpace>
#include <QImageReader>
#include <QTemporaryDir>
#include <QtTest>

#include <tiffio.h>

#include <memory>

namespace {

using camera_block::valueOf;
using Directory = ExifTags::Directory;

void verifyUprightBlock(const QByteArray &block)
{
    QCOMPARE(valueOf(block, EXIF_IFD_0, EXIF_TAG_MAKE), QByteArray("Maker"));
    QCOMPARE(valueOf(block, EXIF_IFD_0, EXIF_TAG_ORIENTATION), QByteArray("Top-left"));
    QCOMPARE(valueOf(block, EXIF_IFD_EXIF, EXIF_TAG_EXPOSURE_TIME), QByteArray("1/60 sec."));
    QCOMPARE(valueOf(block, EXIF_IFD_EXIF, EXIF_TAG_PIXEL_X_DIMENSION), QByteArray("30"));
    QCOMPARE(valueOf(block, EXIF_IFD_EXIF, EXIF_TAG_PIXEL_Y_DIMENSION), QByteArray("40"));
    QCOMPARE(valueOf(block, EXIF_IFD_EXIF, EXIF_TAG_SUBJECT_AREA), QByteArray());
    QVERIFY(valueOf(block, EXIF_IFD_GPS, EXIF_TAG_GPS_LATITUDE).startsWith("47"));
    QVERIFY(!camera_block::hasThumbnail(block));
}

QImage plainPicture(QSize size)
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
    QString saveShot(const QString &name, const QByteArray &block = camera_block::made())
    {
        const QString path = folder.filePath(name);
        QFile file(path);
        const PictureMetadata metadata{ExifTags::parse(block), {}};
        if (!file.open(QIODevice::ReadWrite | QIODevice::Truncate))
            return {};
        const QImage shot = plainPicture({40, 30});
        const QString problem =
            name.endsWith("jpg")   ? jpeg_file::encode(shot, metadata, 95, file, {})
            : name.endsWith("png") ? png_file::encode(shot, metadata, file, {})
                                   : tiff_file::encode(shot, metadata, file, {});
        return problem.isEmpty() ? path : QString();
    }

    /// Writes a picture with this camera data and reads them back.
    WriteResult writeWith(const ExifTags &tags, const QString &name,
                          const QColorSpace &colours = {})
    {
        QImage upright = plainPicture({30, 40});
        upright.setColorSpace(colours);
        WriteOptions options;
        options.metadata.exif = tags;
        options.mayReplace = true;
        return picture::write(upright, folder.filePath(name), *picture::formatOfSuffix(name),
                              options);
    }
    QByteArray blockOf(const QString &name) { return exif::read(folder.filePath(name)).block(); }

private slots:
    void forUprightPicture_resetsWhatNoLongerHolds()
    {
        const exif::Adapted adapted = exif::forUprightPicture(
            ExifTags::parse(camera_block::made()), plainPicture({30, 40}), exif::kAnySize);
        verifyUprightBlock(adapted.tags.block());
        QCOMPARE(adapted.leftOut, QStringList());
    }

    void forUprightPicture_nothing_givesNothing()
    {
        const exif::Adapted adapted =
            exif::forUprightPicture({}, plainPicture({30, 40}), exif::kAnySize);
        QVERIFY(adapted.tags.isEmpty());
        QCOMPARE(adapted.leftOut, QStringList());
    }

    void forUprightPicture_damagedAnywhere_isSafe()
    {
        const QByteArray block = camera_block::made();
        for (int i = 0; i < block.size(); ++i) {
            QByteArray damaged = block;
            damaged[i] = '\xFF';
            for (const QByteArray &bytes : {damaged, block.left(i)})
                exif::forUprightPicture(ExifTags::parse(bytes), plainPicture({3, 4}),
                                        exif::kAnySize);
        }
    }

    void titleAndPositionOfColours_areKept_data() { addFormats(); }
    void titleAndPositionOfColours_areKept()
    {
        QFETCH(QString, suffix);
        const QByteArray title("T\0i\0t\0l\0e\0\0\0", 12);
        constexpr int kTitle = 0x9C9B;
        ExifTags tags = ExifTags::parse(camera_block::with(
            EXIF_IFD_0, kTitle, EXIF_FORMAT_BYTE, static_cast<unsigned long>(title.size()), title));
        tags.setShort(Directory::Picture, EXIF_TAG_YCBCR_POSITIONING, 2);
        const QString name = "title." + suffix;
        QCOMPARE(writeWith(tags, name).leftOut, QStringList());
        const QByteArray block = blockOf(name);
        QCOMPARE(camera_block::bytesOf(block, EXIF_IFD_0, kTitle), title);
        QCOMPARE(valueOf(block, EXIF_IFD_0, EXIF_TAG_YCBCR_POSITIONING), QByteArray("Co-sited"));
    }

    void makerNote_isKeptWholeAtItsPlace_data() { addFormats(); }
    void makerNote_isKeptWholeAtItsPlace()
    {
        QFETCH(QString, suffix);
        const QByteArray note("a private note \0\1\2", 18);
        const ExifTags tags = ExifTags::parse(camera_block::withMakerNoteAt(1000, note));
        const QString name = "note." + suffix;
        QCOMPARE(writeWith(tags, name).leftOut, QStringList());
        const ExifTags read = exif::read(folder.filePath(name));
        const ExifTags::Entry *kept = read.find(Directory::Exposure, ExifTags::MakerNote);
        QVERIFY(kept);
        QCOMPARE(kept->value, note);
        QCOMPARE(int(kept->place), 1000);
        QCOMPARE(camera_block::bytesOf(read.block(), EXIF_IFD_EXIF, EXIF_TAG_MAKER_NOTE), note);
    }

    void makerNote_thatCannotBeKeptWhole_isLeftOutAndSaidSo_data()
    {
        QTest::addColumn<QByteArray>("block");
        // One entry whose 8 bytes stand elsewhere.
        const QByteArray dangling("\1\0\1\0\2\0\10\0\0\0\0\1\0\0\0\0\0\0", 18);
        QTest::newRow("parts elsewhere") << camera_block::withMakerNoteAt(1000, dangling);
        QTest::newRow("far behind") << camera_block::withMakerNoteAt(90000, "a private note");
    }

    void makerNote_thatCannotBeKeptWhole_isLeftOutAndSaidSo()
    {
        QFETCH(QByteArray, block);
        const WriteResult result = writeWith(ExifTags::parse(block), QStringLiteral("left.jpg"));
        QCOMPARE(result.leftOut.size(), 1);
        QVERIFY(result.leftOut.first().contains("maker note"));
        const ExifTags read = exif::read(folder.filePath("left.jpg"));
        QVERIFY(!read.find(Directory::Exposure, ExifTags::MakerNote));
        QCOMPARE(read.text(Directory::Picture, ExifTags::Make), QStringLiteral("Maker"));
    }

    void makerNote_ofItsOwnCount_isMoved()
    {
        const QByteArray note("FUJIFILM and more", 17);
        const ExifTags tags = ExifTags::parse(camera_block::withMakerNoteAt(90000, note));
        QCOMPARE(writeWith(tags, QStringLiteral("moved.jpg")).leftOut, QStringList());
        QCOMPARE(camera_block::bytesOf(blockOf(QStringLiteral("moved.jpg")), EXIF_IFD_EXIF,
                                       EXIF_TAG_MAKER_NOTE),
                 note);
    }

    void makerNote_tooLargeForJpeg_staysInPng()
    {
        ExifTags tags = ExifTags::parse(camera_block::made());
        tags.setBytes(Directory::Exposure, ExifTags::MakerNote, QByteArray(70000, 'x'));
        QCOMPARE(writeWith(tags, QStringLiteral("large.png")).leftOut, QStringList());
        const WriteResult result = writeWith(tags, QStringLiteral("large.jpg"));
        QVERIFY(result.leftOut.value(0).contains("maker note"));
        verifyUprightBlock(blockOf(QStringLiteral("large.jpg")));
        tags.setBytes(Directory::Exposure, ExifTags::SubjectLocation + 1, QByteArray(70000, 'x'));
        QVERIFY(writeWith(tags, QStringLiteral("larger.jpg")).leftOut.value(0).contains("EXIF"));
        QCOMPARE(blockOf(QStringLiteral("larger.jpg")), QByteArray());
    }

    void colourSpace_isThatOfThePixels_data()
    {
        QTest::addColumn<QColorSpace>("colours");
        QTest::addColumn<int>("expected");
        QTest::addColumn<QString>("index");
        QTest::newRow("not told") << QColorSpace() << 0xFFFF << "R03";
        QTest::newRow("sRGB") << QColorSpace(QColorSpace::SRgb) << 1 << "R98";
        QTest::newRow("Adobe RGB") << QColorSpace(QColorSpace::AdobeRgb) << 0xFFFF << "R03";
        QTest::newRow("Display P3") << QColorSpace(QColorSpace::DisplayP3) << 0xFFFF << "";
    }

    void colourSpace_isThatOfThePixels()
    {
        QFETCH(QColorSpace, colours);
        QFETCH(int, expected);
        QFETCH(QString, index);
        ExifTags tags = ExifTags::parse(camera_block::made());
        tags.setShort(Directory::Exposure, ExifTags::ColourSpace, 0xFFFF);
        tags.setText(Directory::Interoperability, ExifTags::InteroperabilityIndex, "R03");
        writeWith(tags, QStringLiteral("colours.png"), colours);
        const ExifTags read = exif::read(folder.filePath("colours.png"));
        QCOMPARE(int(read.number(Directory::Exposure, ExifTags::ColourSpace).value_or(0)),
                 expected);
        QCOMPARE(read.text(Directory::Interoperability, ExifTags::InteroperabilityIndex), index);
    }

    void read_rawFile_tellsTheColoursOfItsConversion()
    {
        DngRecipe recipe;
        recipe.takenAt = "2024:06:15 10:42:07";
        const QString path = folder.filePath("shot.dng");
        QVERIFY(writeDng(path, recipe));
        const ExifTags tags = exif::read(path);
        QCOMPARE(tags.text(Directory::Picture, ExifTags::Model), QStringLiteral("Test Camera"));
        QCOMPARE(int(tags.number(Directory::Exposure, ExifTags::ColourSpace).value_or(0)), 1);
    }

    void read_tiffWhoseDataStandBehind64KB_tellsAll()
    {
        const QString path = folder.filePath("behind.tif");
        {
            const std::unique_ptr<TIFF, decltype(&TIFFClose)> file(
                TIFFOpen(QFile::encodeName(path).constData(), "w"), &TIFFClose);
            const std::vector<uint8_t> row(300 * 3, 77);
            TIFFSetField(file.get(), TIFFTAG_IMAGEWIDTH, 300);
            TIFFSetField(file.get(), TIFFTAG_IMAGELENGTH, 200);
            TIFFSetField(file.get(), TIFFTAG_SAMPLESPERPIXEL, 3);
            TIFFSetField(file.get(), TIFFTAG_BITSPERSAMPLE, 8);
            TIFFSetField(file.get(), TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
            TIFFSetField(file.get(), TIFFTAG_MODEL, "A camera");
            for (uint32_t y = 0; y < 200; ++y)
                QCOMPARE(TIFFWriteScanline(file.get(), const_cast<uint8_t *>(row.data()), y, 0), 1);
            QVERIFY(TIFFWriteDirectory(file.get()));
            uint64_t place = 0;
            QCOMPARE(TIFFCreateEXIFDirectory(file.get()), 0);
            TIFFSetField(file.get(), EXIFTAG_EXPOSURETIME, 0.25);
            QVERIFY(TIFFWriteCustomDirectory(file.get(), &place));
            QVERIFY(place > 65536);
            QVERIFY(TIFFSetDirectory(file.get(), 0));
            TIFFSetField(file.get(), TIFFTAG_EXIFIFD, place);
        }
        const ExifTags tags = exif::read(path);
        QCOMPARE(tags.text(Directory::Picture, ExifTags::Model), QStringLiteral("A camera"));
        QCOMPARE(tags.fraction(Directory::Exposure, ExifTags::ExposureTime).value_or(0), 0.25);
        for (const ExifTags::Entry &entry : tags.entries(Directory::Picture))
            QVERIFY(entry.tag == ExifTags::Model || entry.tag == ExifTags::Orientation);
    }

    void read_fileWithoutBlock_givesNothing()
    {
        for (const char *format : {"png", "jpeg", "bmp"}) {
            const QString path = folder.filePath(QStringLiteral("plain"));
            QVERIFY(plainPicture({8, 8}).save(path, format));
            QVERIFY(exif::read(path).isEmpty());
        }
        QVERIFY(exif::read(folder.filePath(QStringLiteral("none"))).isEmpty());
    }

    void writtenBlock_isReadBack_data() { addFormats(); }
    void writtenBlock_isReadBack()
    {
        QFETCH(QString, suffix);
        const QString path = saveShot("shot." + suffix);
        QVERIFY(!path.isEmpty());
        const QByteArray block = exif::read(path).block();
        QCOMPARE(valueOf(block, EXIF_IFD_0, EXIF_TAG_MAKE), QByteArray("Maker"));
        QCOMPARE(valueOf(block, EXIF_IFD_EXIF, EXIF_TAG_EXPOSURE_TIME), QByteArray("1/60 sec."));
        QCOMPARE(QImage(path).convertToFormat(QImage::Format_RGB32).pixel(3, 0) == 0, false);
    }

    void merge_keepsTheFirstPicturesMetadata_data() { addFormats(); }
    void merge_keepsTheFirstPicturesMetadata()
    {
        QFETCH(QString, suffix);
        QVERIFY(!saveShot("1.jpg").isEmpty());
        QVERIFY(plainPicture({30, 40}).save(folder.filePath("2.png")));
        const ProgramRun merged = runProgramIn(
            folder.path(), {"merge", "--no-align", "1.jpg", "2.png", "-o", "out." + suffix});
        QCOMPARE(merged.errors, QByteArray());
        QCOMPARE(merged.exitCode, 0);
        const QString out = folder.filePath("out." + suffix);
        verifyUprightBlock(exif::read(out).block());
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
        const QByteArray block = blockOf(QStringLiteral("o.jpg"));
        QCOMPARE(valueOf(block, EXIF_IFD_0, EXIF_TAG_MAKE), QByteArray("Maker"));
        QCOMPARE(valueOf(block, EXIF_IFD_0, EXIF_TAG_ORIENTATION), QByteArray("Top-left"));
        QCOMPARE(valueOf(block, EXIF_IFD_0, EXIF_TAG_STRIP_OFFSETS), QByteArray());
    }

    void merge_keepsColourProfileAndResolution_data() { addFormats(); }
    void merge_keepsColourProfileAndResolution()
    {
        QFETCH(QString, suffix);
        QImage first = plainPicture({30, 40});
        first.setColorSpace(QColorSpace::AdobeRgb);
        first.setDotsPerMeterX(11811);
        first.setDotsPerMeterY(11811);
        QVERIFY(first.save(folder.filePath("1.png")));
        QVERIFY(plainPicture({30, 40}).save(folder.filePath("2.png")));
        const QString out = folder.filePath("profile." + suffix);
        QCOMPARE(runProgramIn(folder.path(),
                              {"merge", "1.png", "2.png", "--reference", "1.png", "-o", out})
                     .exitCode,
                 0);
        const QImage written(out);
        QCOMPARE(written.colorSpace().primaries(), QColorSpace::Primaries::AdobeRgb);
        QVERIFY(std::abs(written.dotsPerMeterX() - 11811) <= 1);
    }
};

QTEST_GUILESS_MAIN(TestExifMetadata)
#include "tst_exif_metadata.moc"
