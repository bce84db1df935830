#include "ProgramRun.h"
#include "colour_profile.h"
#include "coloured_files.h"
#include "dng_writer.h"
#include "picture_reader.h"
#include "picture_writer.h"
#include "test_colours.h"

#include <QColorSpace>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRgba64>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <tiffio.h>

using namespace test_colours;
using colour_profile::Space;

namespace {

const QSize kSize(180, 120);

QImage scene()
{
    return softScene(kSize.width(), kSize.height());
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool save(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// As it stands in the file; without profile it is sRGB.
QImage readDeep(const QString &path)
{
    ReadOptions options;
    options.depth = ReadOptions::Depth::AsStored;
    return picture::read(path, options).image;
}

int tiffCompression(const QString &path)
{
    TIFF *const file = TIFFOpen(qPrintable(path), "r");
    std::uint16_t compression = 0;
    if (file)
        TIFFGetField(file, TIFFTAG_COMPRESSION, &compression);
    if (file)
        TIFFClose(file);
    return compression;
}

} // namespace

/// Depth and colours from file to file, and standard input and output.
class TestColours : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir folder;

    QString path(const QString &name) const { return folder.filePath(name); }

    ProgramRun merge(const QStringList &words) const
    {
        return runProgramIn(folder.path(),
                            QStringList{"merge", "--align", "none", "--ghosts", "off"} + words);
    }

    /// The scene in that space, in a TIFF or PNG file of so many bits.
    void saveIn(const QString &name, const QByteArray &profile, int bits, QImage picture = scene())
    {
        picture = profile.isEmpty() ? picture : brought(picture, profile);
        WriteOptions options;
        options.bitsPerSample = bits;
        options.mayReplace = true;
        const PictureFormat format = picture::formatOfSuffix(name).value_or(PictureFormat::Png);
        QVERIFY(picture::write(picture, path(name), format, options).reason.isEmpty());
    }

    void saveInks(const QString &name)
    {
        const QByteArray inks = numbersIn(scene(), inkProfile(), TYPE_CMYK_8);
        QVERIFY(save(path(name), coloured_files::made(coloured_files::Tiff{
                                     kSize, PHOTOMETRIC_SEPARATED, 8, 4, inks, inkProfile()})));
    }

    void saveGrey(const QString &name)
    {
        const QByteArray grey = numbersIn(scene(), greyProfile(1.8), TYPE_GRAY_16);
        QVERIFY(save(path(name),
                     coloured_files::made(coloured_files::Tiff{kSize, PHOTOMETRIC_MINISBLACK, 16, 1,
                                                               grey, greyProfile(1.8)})));
    }

    /// The scene's grey as red, green and blue in sRGB.
    QImage greyScene() const
    {
        const QByteArray words = numbersIn(scene(), greyProfile(1.8), TYPE_GRAY_16);
        QImage picture(kSize, QImage::Format_RGBX64);
        const QByteArray profile = greyProfile(1.8);
        const cmsHPROFILE from =
            cmsOpenProfileFromMem(profile.constData(), quint32(profile.size()));
        const cmsHPROFILE to = cmsCreate_sRGBProfile();
        const cmsHTRANSFORM way =
            cmsCreateTransform(from, TYPE_GRAY_16, to, TYPE_RGBA_16, INTENT_RELATIVE_COLORIMETRIC,
                               cmsFLAGS_BLACKPOINTCOMPENSATION);
        cmsCloseProfile(from);
        cmsCloseProfile(to);
        picture.fill(Qt::black);
        for (int y = 0; y < kSize.height(); ++y)
            cmsDoTransform(way, words.constData() + 2 * kSize.width() * y, picture.scanLine(y),
                           quint32(kSize.width()));
        cmsDeleteTransform(way);
        return picture;
    }

    /// What lcms' own programs make of a file is sRGB.
    void checkByLittleCms(const QString &name)
    {
        const bool isJpeg = name.endsWith(QLatin1String("jpg"));
        const QString program = QStandardPaths::findExecutable(isJpeg ? QStringLiteral("jpgicc")
                                                                      : QStringLiteral("tificc"));
        QVERIFY2(!program.isEmpty(), "the package liblcms2-utils is missing");
        QProcess converter;
        converter.start(program, {path(name), path(name) + ".converted.tif"});
        QVERIFY(converter.waitForFinished());
        QVERIFY2(converter.exitCode() == 0, converter.readAllStandardError());
        QVERIFY2(!converter.readAllStandardError().contains("arning"), qPrintable(name));
    }

private slots:
    void init()
    {
        QVERIFY(folder.isValid());
        for (const QString &name : QDir(folder.path()).entryList(QDir::Files))
            QFile::remove(path(name));
    }

    void merge_withItselfInAnySpace_hasTheColoursOfSrgb_data()
    {
        QTest::addColumn<QByteArray>("profile");
        QTest::addColumn<int>("bits");
        QTest::addColumn<QString>("suffix");
        const auto row = [](const char *name, Space space, int bits, const char *suffix) {
            QTest::newRow(name) << colour_profile::of(space) << bits << suffix;
        };
        row("Adobe RGB, 8 bits", Space::AdobeRgb, 8, "tif");
        row("Adobe RGB, JPEG", Space::AdobeRgb, 8, "jpg");
        row("Display P3, 8 bits", Space::DisplayP3, 8, "png");
        row("Display P3, 16 bits", Space::DisplayP3, 16, "png");
        row("ProPhoto RGB, 16 bits", Space::ProPhotoRgb, 16, "tif");
        row("ProPhoto RGB, 16 bits, PNG", Space::ProPhotoRgb, 16, "png");
    }

    void merge_withItselfInAnySpace_hasTheColoursOfSrgb()
    {
        QFETCH(QByteArray, profile);
        QFETCH(int, bits);
        QFETCH(QString, suffix);
        const QString one = QStringLiteral("one.") + suffix;
        const QString two = QStringLiteral("two.") + suffix;
        const QString out = QStringLiteral("out.") + suffix;
        saveIn(one, profile, bits);
        saveIn(two, profile, bits);
        saveIn("srgb1.tif", {}, 16);
        saveIn("srgb2.tif", {}, 16);
        QCOMPARE(merge({one, two, "-o", out}).exitCode, 0);
        QCOMPARE(merge({"srgb1.tif", "srgb2.tif", "-o", "srgb.tif"}).exitCode, 0);
        const QImage merged = readDeep(path(out));
        QCOMPARE(merged.depth(), bits == 16 ? 64 : 32);
        QCOMPARE(merged.colorSpace().iccProfile(), profile);
        const double difference = meanDifference(merged, readDeep(path("srgb.tif")));
        qInfo("mean CIEDE2000 %.3f", difference);
        QVERIFY(difference < 1);
        if (suffix != "png")
            checkByLittleCms(out);
    }

    void merge_greyWithItself_hasTheColoursOfSrgb()
    {
        saveGrey("one.tif");
        saveGrey("two.tif");
        QCOMPARE(merge({"one.tif", "two.tif", "-o", "out.tif"}).exitCode, 0);
        const double difference = meanDifference(readDeep(path("out.tif")), greyScene());
        qInfo("mean CIEDE2000 %.3f", difference);
        QVERIFY(difference < 1);
        checkByLittleCms("out.tif");
    }

    void merge_inksWithThemselves_hasTheColoursOfSrgb()
    {
        saveInks("one.tif");
        saveInks("two.tif");
        QCOMPARE(merge({"one.tif", "two.tif", "-o", "out.jpg"}).exitCode, 0);
        const double difference = meanDifference(readDeep(path("out.jpg")), scene());
        qInfo("mean CIEDE2000 %.3f", difference);
        QVERIFY(difference < 1);
        checkByLittleCms("out.jpg");
    }

    void merge_mixedProfiles_hasTheColoursOfSrgb_data()
    {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("sRGB first")
            << QStringList{"srgb.tif", "adobe.tif", "p3.png", "prophoto.tif", "inks.tif"}
            << QByteArray();
        QTest::newRow("ProPhoto RGB first")
            << QStringList{"prophoto.tif", "srgb.tif", "inks.tif", "p3.png"}
            << colour_profile::of(Space::ProPhotoRgb);
        QTest::newRow("Adobe RGB first")
            << QStringList{"adobe.tif", "prophoto.tif"} << colour_profile::of(Space::AdobeRgb);
    }

    void merge_mixedProfiles_hasTheColoursOfSrgb()
    {
        QFETCH(QStringList, files);
        QFETCH(QByteArray, expected);
        saveIn("srgb.tif", {}, 8);
        saveIn("adobe.tif", colour_profile::of(Space::AdobeRgb), 8);
        saveIn("p3.png", colour_profile::of(Space::DisplayP3), 8);
        saveIn("prophoto.tif", colour_profile::of(Space::ProPhotoRgb), 16);
        saveInks("inks.tif");
        const ProgramRun run =
            merge(QStringList{"--keep-order", "--json", "-o", "out.tif"} + files);
        QCOMPARE(run.exitCode, 0);
        const QImage merged = readDeep(path("out.tif"));
        QCOMPARE(merged.colorSpace().iccProfile(), expected);
        const double difference = meanDifference(merged, scene());
        qInfo("mean CIEDE2000 %.3f", difference);
        QVERIFY(difference < 1);
        checkByLittleCms("out.tif");
        QSet<QString> converted;
        for (const QJsonValue &one :
             QJsonDocument::fromJson(run.output).object()["converted"].toArray())
            converted += one.toObject()["picture"].toString();
        QSet<QString> others(files.begin() + 1, files.end());
        if (expected.isEmpty())
            others.remove("inks.tif"); // has become sRGB when it was read
        QCOMPARE(converted, others);
    }

    void merge_bracketOfMixedProfiles_isThatOfSrgb()
    {
        QImage dark = scene();
        for (int y = 0; y < dark.height(); ++y) {
            auto *row = reinterpret_cast<QRgba64 *>(dark.scanLine(y));
            for (int x = 0; x < dark.width(); ++x)
                row[x] = QRgba64::fromRgba64(row[x].red() / 2, row[x].green() / 2,
                                             row[x].blue() / 2, 0xFFFF);
        }
        saveIn("a.tif", {}, 16);
        saveIn("b.tif", {}, 16, dark);
        saveIn("c.tif", colour_profile::of(Space::ProPhotoRgb), 16, dark);
        QCOMPARE(merge({"a.tif", "b.tif", "-o", "srgb.tif"}).exitCode, 0);
        QCOMPARE(merge({"a.tif", "c.tif", "-o", "mixed.tif"}).exitCode, 0);
        const double difference =
            meanDifference(readDeep(path("srgb.tif")), readDeep(path("mixed.tif")));
        qInfo("mean CIEDE2000 %.3f", difference);
        QVERIFY(difference < 0.05);
    }

    void merge_damagedProfile_isSaidAndCountsAsNone()
    {
        const QByteArray profile = colour_profile::of(Space::AdobeRgb);
        const QByteArray numbers = numbersIn(scene(), {}, TYPE_RGB_8);
        QVERIFY(save(path("a.tif"), coloured_files::made(
                                        coloured_files::Tiff{kSize, PHOTOMETRIC_RGB, 8, 3, numbers,
                                                             profile.left(profile.size() / 2)})));
        saveIn("b.tif", {}, 8);
        const ProgramRun run = merge({"a.tif", "b.tif", "-o", "out.tif"});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.errors.startsWith("veskhdr: a.tif: warning: its colour profile is damaged"));
        QCOMPARE(linesOf(run.errors).size(), 1);
        QVERIFY(meanDifference(readDeep(path("out.tif")), scene()) < 1);
    }

    void depth_unlessGiven_isTheFirstPicturesWhereTheFormatHasIt_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<int>("depth");
        QTest::newRow("16 bits first") << QStringList{"deep.tif", "flat.tif", "-o", "o.png"} << 64;
        QTest::newRow("8 bits first") << QStringList{"flat.tif", "deep.tif", "-o", "o.tif"} << 32;
        QTest::newRow("JPEG") << QStringList{"deep.tif", "flat.tif", "-o", "o.jpg"} << 32;
        QTest::newRow("8 bits of 16")
            << QStringList{"deep.tif", "flat.tif", "--depth", "8", "-o", "o.tif"} << 32;
        QTest::newRow("16 bits of 8")
            << QStringList{"flat.tif", "flat2.tif", "--depth", "16", "-o", "o.tif"} << 64;
        QTest::newRow("the mean") << QStringList{"--method", "mean", "deep.tif",
                                                 "flat.tif", "-o",   "o.tif"}
                                  << 32;
    }

    void depth_unlessGiven_isTheFirstPicturesWhereTheFormatHasIt()
    {
        QFETCH(QStringList, words);
        QFETCH(int, depth);
        saveIn("deep.tif", {}, 16);
        saveIn("flat.tif", {}, 8);
        saveIn("flat2.tif", {}, 8);
        const bool isMean = words.contains("mean");
        const QStringList all = QStringList{"--keep-order"} + words;
        const ProgramRun run =
            isMean ? runProgramIn(folder.path(), QStringList{"merge", "--no-align"} + all)
                   : merge(all);
        QVERIFY2(run.exitCode == 0, run.errors);
        QCOMPARE(readDeep(path(words.last())).depth(), depth);
    }

    void depth_sixteenOfEight_hasLevelsBetween()
    {
        saveIn("a.png", {}, 8);
        saveIn("b.png", {}, 8, scene().mirrored());
        QCOMPARE(merge({"a.png", "b.png", "--depth", "16", "-o", "out.tif"}).exitCode, 0);
        const QImage merged = readDeep(path("out.tif"));
        QSet<quint16> levels;
        for (int y = 0; y < merged.height(); ++y) {
            const auto *row = reinterpret_cast<const QRgba64 *>(merged.constScanLine(y));
            for (int x = 0; x < merged.width(); ++x)
                levels += row[x].green();
        }
        QVERIFY2(levels.size() > 1000, qPrintable(QString::number(levels.size())));
    }

    void outputSpace_any_convertsAndTags_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("profile");
        QTest::newRow("sRGB") << "srgb" << colour_profile::of(Space::Srgb);
        QTest::newRow("Adobe RGB") << "adobe" << colour_profile::of(Space::AdobeRgb);
        QTest::newRow("ProPhoto RGB") << "prophoto" << colour_profile::of(Space::ProPhotoRgb);
        QTest::newRow("Display P3") << "p3" << colour_profile::of(Space::DisplayP3);
    }

    void outputSpace_any_convertsAndTags()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, profile);
        saveIn("a.tif", {}, 16);
        saveIn("b.tif", colour_profile::of(Space::DisplayP3), 16);
        QCOMPARE(merge({"a.tif", "b.tif", "--output-space", name, "-o", "out.tif"}).exitCode, 0);
        const QImage merged = readDeep(path("out.tif"));
        QCOMPARE(merged.colorSpace().iccProfile(), profile);
        QVERIFY(meanDifference(merged, scene()) < 0.3);
        checkByLittleCms("out.tif");
    }

    void rawSpace_any_isTagged_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("profile");
        QTest::newRow("unless given") << "" << colour_profile::of(Space::Srgb);
        QTest::newRow("Adobe RGB") << "adobe" << colour_profile::of(Space::AdobeRgb);
        QTest::newRow("ProPhoto RGB") << "prophoto" << colour_profile::of(Space::ProPhotoRgb);
        QTest::newRow("Display P3") << "p3" << colour_profile::of(Space::DisplayP3);
    }

    void rawSpace_any_isTagged()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, profile);
        DngRecipe recipe;
        recipe.width = 96;
        recipe.height = 64;
        recipe.scene = [](int x, int y, int channel) {
            return 0.1 + 0.3 * x / 96 + 0.2 * y / 64 * (channel == 1);
        };
        QVERIFY(writeDng(path("a.dng"), recipe));
        QVERIFY(writeDng(path("b.dng"), recipe));
        const QStringList space = name.isEmpty() ? QStringList() : QStringList{"--raw-space", name};
        QCOMPARE(merge(space + QStringList{"a.dng", "b.dng", "-o", "out.tif"}).exitCode, 0);
        QCOMPARE(merge({"a.dng", "b.dng", "-o", "srgb.tif"}).exitCode, 0);
        const QImage merged = readDeep(path("out.tif"));
        QCOMPARE(merged.depth(), 64);
        QCOMPARE(merged.colorSpace().iccProfile(), profile);
        QVERIFY(meanDifference(merged, readDeep(path("srgb.tif"))) < 0.5);
        checkByLittleCms("out.tif");
    }

    void tiffCompression_any_isInTheFileAndLosesNothing()
    {
        saveIn("a.tif", {}, 16);
        saveIn("b.tif", {}, 16);
        QCOMPARE(merge({"a.tif", "b.tif", "-o", "usual.tif"}).exitCode, 0);
        const QImage usual = readDeep(path("usual.tif"));
        QCOMPARE(tiffCompression(path("usual.tif")), COMPRESSION_LZW);
        for (const auto &[word, number] :
             {std::pair{"none", COMPRESSION_NONE}, std::pair{"lzw", COMPRESSION_LZW},
              std::pair{"deflate", COMPRESSION_ADOBE_DEFLATE}}) {
            QCOMPARE(merge({"a.tif", "b.tif", "--force", "--tiff-compression", word, "-o", "o.tif"})
                         .exitCode,
                     0);
            QCOMPARE(tiffCompression(path("o.tif")), number);
            QCOMPARE(readDeep(path("o.tif")), usual);
            checkByLittleCms("o.tif");
        }
    }

    void effort_more_makesSmallerFilesOfTheSamePixels()
    {
        saveIn("a.tif", {}, 16);
        saveIn("b.tif", {}, 16);
        QCOMPARE(merge({"a.tif", "b.tif", "-o", "fast.png"}).exitCode, 0);
        QCOMPARE(merge({"a.tif", "b.tif", "--effort", "9", "-o", "small.png"}).exitCode, 0);
        QCOMPARE(readDeep(path("fast.png")), readDeep(path("small.png")));
        QVERIFY(contentOf(path("small.png")).size() < contentOf(path("fast.png")).size());
    }

    void standardOutput_anyFormat_isTheFile_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("file");
        QTest::newRow("PNG") << "png"
                             << "out.png";
        QTest::newRow("JPEG") << "jpeg"
                              << "out.jpg";
        QTest::newRow("TIFF") << "tiff"
                              << "out.tif";
    }

    void standardOutput_anyFormat_isTheFile()
    {
        QFETCH(QString, format);
        QFETCH(QString, file);
        saveIn("a.tif", {}, 16);
        saveIn("b.tif", {}, 16);
        QCOMPARE(merge({"a.tif", "b.tif", "-o", file}).exitCode, 0);
        const ProgramRun run = merge({"a.tif", "b.tif", "-o", "-", "--format", format});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(save(path("piped"), run.output));
        QCOMPARE(readDeep(path("piped")), readDeep(path(file)));
        QVERIFY(run.errors.isEmpty());
        QVERIFY(!QFile::exists(path("-")));
    }

    void standardOutput_full_isSaid()
    {
        saveIn("a.tif", {}, 8);
        saveIn("b.tif", {}, 8);
        Program program;
        program.setWorkingDirectory(folder.path());
        program.isOutputFull = true;
        const ProgramRun run =
            program.run({"merge", "--no-align", "a.tif", "b.tif", "-o", "-", "--format", "png"});
        QCOMPARE(run.exitCode, 74);
        QVERIFY(run.errors.contains("No space left"));
    }

    void standardInput_asPicture_isReadLikeAFile()
    {
        saveIn("a.tif", {}, 16);
        saveIn("b.tif", colour_profile::of(Space::AdobeRgb), 8);
        QCOMPARE(merge({"--keep-order", "b.tif", "a.tif", "-o", "file.tif"}).exitCode, 0);
        Program program;
        program.setWorkingDirectory(folder.path());
        program.setStandardInputFile(path("b.tif"));
        const ProgramRun run =
            program.run({"merge", "--align", "none", "--ghosts", "off", "--keep-order", "-",
                         "a.tif", "-o", "-", "--format", "tiff"});
        QVERIFY2(run.exitCode == 0, run.errors);
        QVERIFY(save(path("piped"), run.output));
        QCOMPARE(readDeep(path("piped")), readDeep(path("file.tif")));
        QCOMPARE(readDeep(path("piped")).colorSpace().iccProfile(),
                 colour_profile::of(Space::AdobeRgb));
    }

    void standardInput_withoutPicture_isRefused()
    {
        saveIn("a.tif", {}, 8);
        Program program;
        program.setWorkingDirectory(folder.path());
        program.setStandardInputFile(QProcess::nullDevice());
        const ProgramRun run = program.run({"merge", "-", "a.tif", "-o", "out.png"});
        QCOMPARE(run.exitCode, 65);
        QCOMPARE(run.errors, QByteArray("veskhdr: -: the file is empty\n"));
    }

    void standardInput_tooMuch_isRefused()
    {
        saveIn("a.tif", {}, 8);
        Program program;
        program.setWorkingDirectory(folder.path());
        program.setStandardInputFile(QStringLiteral("/dev/zero"));
        const ProgramRun run =
            program.run({"merge", "--max-megapixels", "1", "-", "a.tif", "-o", "out.png"});
        QCOMPARE(run.exitCode, 66);
        QVERIFY(run.errors.startsWith("veskhdr: -: more bytes"));
    }

    void refuse_wrongWords_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::newRow("output without format") << QStringList{"-o", "-"};
        QTest::newRow("unknown format") << QStringList{"-o", "-", "--format", "gif"};
        QTest::newRow("two things to print") << QStringList{"-o", "-", "--format", "png", "--json"};
        QTest::newRow("depth") << QStringList{"-o", "o.png", "--depth", "12"};
        QTest::newRow("deep JPEG") << QStringList{"-o", "o.jpg", "--depth", "16"};
        QTest::newRow("deep mean")
            << QStringList{"-o", "o.png", "--depth", "16", "--method", "mean"};
        QTest::newRow("raw space") << QStringList{"-o", "o.png", "--raw-space", "lab"};
        QTest::newRow("output space") << QStringList{"-o", "o.png", "--output-space", "cmyk"};
        QTest::newRow("space of the mean")
            << QStringList{"-o", "o.png", "--output-space", "p3", "--method", "mean"};
        QTest::newRow("compression") << QStringList{"-o", "o.tif", "--tiff-compression", "zip"};
        QTest::newRow("compression of PNG")
            << QStringList{"-o", "o.png", "--tiff-compression", "none"};
        QTest::newRow("effort") << QStringList{"-o", "o.png", "--effort", "10"};
    }

    void refuse_wrongWords()
    {
        QFETCH(QStringList, words);
        saveIn("a.png", {}, 8);
        saveIn("b.png", {}, 8);
        const ProgramRun run =
            runProgramIn(folder.path(), QStringList{"merge", "a.png", "b.png"} + words);
        QCOMPARE(run.exitCode, 64);
        QCOMPARE(linesOf(run.errors).size(), 1);
        QVERIFY(run.output.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestColours)
#include "tst_veskhdr_colours.moc"
