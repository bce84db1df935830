#include "PhotoFolder.h"
#include "ProgramRun.h"

#include <QColorSpace>
#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

namespace {

ProgramRun inspectIn(const PhotoFolder &photos, const QStringList &words)
{
    return runProgramIn(photos.path(), QStringList("inspect") + words);
}

QJsonObject objectOf(const ProgramRun &run)
{
    return QJsonDocument::fromJson(run.output).object();
}

} // namespace

class TestInspect : public QObject
{
    Q_OBJECT

private slots:
    void photograph_tellsWhatTheCameraNoted()
    {
        const PhotoFolder photos;
        photos.writeShot("a.jpg", -2, 0.125);
        const ProgramRun run = inspectIn(photos, {"--json", "a.jpg"});
        QCOMPARE(run.exitCode, 0);
        const QJsonObject told = objectOf(run);
        QCOMPARE(told["file"].toString(), QString("a.jpg"));
        QCOMPARE(told["format"].toString(), QString("JPEG"));
        QCOMPARE(QSize(told["width"].toInt(), told["height"].toInt()), QSize(6, 4));
        QCOMPARE(told["bitsPerSample"].toInt(), 8);
        QCOMPARE(told["exposureBias"].toDouble(), -2.0);
        QCOMPARE(told["exposureTime"].toDouble(), 1.0 / 256);
        QCOMPARE(told["takenAt"].toString(), QString("2026-06-21T12:00:00.125"));
        QCOMPARE(told["model"].toString(), QString("Vesk Sample Camera"));
        QCOMPARE(told["orientation"].toInt(), 1);
        QCOMPARE(told["metadata"].toArray(), QJsonArray({"exif"}));
        QVERIFY(told["merged"].isNull());
        QVERIFY(told["rating"].isNull());
    }

    void depthAndColours_areTold_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("format");
        QTest::addColumn<bool>("deep");
        QTest::newRow("png of 16 bits") << "a.png"
                                        << "PNG" << true;
        QTest::newRow("png") << "a.png"
                             << "PNG" << false;
        QTest::newRow("tiff of 16 bits") << "a.tif"
                                         << "TIFF" << true;
        QTest::newRow("jpeg") << "a.jpg"
                              << "JPEG" << false;
        QTest::newRow("webp") << "a.webp"
                              << "WebP" << false;
    }

    void depthAndColours_areTold()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, format);
        QFETCH(const bool, deep);
        const PhotoFolder photos;
        QImage picture(7, 5, deep ? QImage::Format_RGBX64 : QImage::Format_RGB32);
        picture.fill(Qt::darkCyan);
        picture.setColorSpace(QColorSpace::DisplayP3);
        QVERIFY(picture.save(photos.path(name)));
        const QJsonObject told = objectOf(inspectIn(photos, {"--json", name}));
        QCOMPARE(told["format"].toString(), format);
        QCOMPARE(QSize(told["width"].toInt(), told["height"].toInt()), QSize(7, 5));
        QCOMPARE(told["bitsPerSample"].toInt(), deep ? 16 : 8);
        QVERIFY2(told["colours"].toString().contains("P3"), qPrintable(told["colours"].toString()));
    }

    void light_isTold_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QString>("format");
        QTest::addColumn<int>("bits");
        const QStringList none;
#ifdef VESK_WITH_OPENEXR
        QTest::newRow("OpenEXR") << "a.exr" << none << "OpenEXR" << 16;
        QTest::newRow("OpenEXR of floats")
            << "a.exr" << QStringList{"--depth", "32"} << "OpenEXR" << 32;
#endif
        QTest::newRow("Radiance") << "a.hdr" << none << "Radiance HDR" << 8;
        QTest::newRow("TIFF") << "a.tif" << none << "TIFF" << 32;
    }

    void light_isTold()
    {
        QFETCH(const QString, name);
        QFETCH(const QStringList, options);
        QFETCH(const QString, format);
        QFETCH(const int, bits);
        const PhotoFolder photos;
        photos.writeShot("a.jpg", -2, 0);
        photos.writeShot("b.jpg", 2, 1);
        const QJsonObject shot = objectOf(inspectIn(photos, {"--json", "a.jpg"}));
        const ProgramRun merge = runProgramIn(
            photos.path(), QStringList{"merge", "--method", "radiance", "--align", "none"} +
                               options + QStringList{"a.jpg", "b.jpg", "-o", name});
        QCOMPARE(merge.exitCode, 0);
        const QJsonObject told = objectOf(inspectIn(photos, {"--json", name}));
        QCOMPARE(told["format"].toString(), format);
        QCOMPARE(told["bitsPerSample"].toInt(), bits);
        QCOMPARE(told["width"], shot["width"]);
        QCOMPARE(told["height"], shot["height"]);
    }

    void rawFile_isTold()
    {
        const PhotoFolder photos;
        photos.writeRaw("a.dng", 1, 0);
        const QJsonObject told = objectOf(inspectIn(photos, {"--json", "a.dng"}));
        QCOMPARE(told["format"].toString(), QString("camera raw"));
        QCOMPARE(QSize(told["width"].toInt(), told["height"].toInt()), QSize(48, 64));
        QCOMPARE(told["exposureBias"].toDouble(), 1.0);
    }

    void mergedPicture_tellsWhatItWasMadeFrom_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"out.jpg", "out.png", "out.tif"})
            QTest::newRow(name) << name;
    }

    void mergedPicture_tellsWhatItWasMadeFrom()
    {
        QFETCH(const QString, name);
        const PhotoFolder photos;
        photos.writeShot("below/a.jpg", -2, 0);
        photos.writeShot("below/b.jpg", 2, 1);
        const ProgramRun merge =
            runProgramIn(photos.path(), {"merge", "--method", "mean", "--no-align", "below/a.jpg",
                                         "below/b.jpg", "-o", name});
        QCOMPARE(merge.exitCode, 0);
        const QJsonObject merged =
            objectOf(inspectIn(photos, {"--json", name}))["merged"].toObject();
        QCOMPARE(merged["program"].toString(), QString("veskhdr"));
        QVERIFY(!merged["version"].toString().isEmpty());
        QCOMPARE(merged["method"].toString(), QString("mean"));
        QCOMPARE(merged["options"].toString(), QString("--no-align"));
        QCOMPARE(merged["sources"].toArray(), QJsonArray({"a.jpg", "b.jpg"}));
        const ProgramRun text = inspectIn(photos, {name});
        QVERIFY(text.output.contains("by veskhdr "));
        QVERIFY(text.output.contains("from a.jpg, b.jpg"));
    }

    void merge_withoutMetadata_isMarkedWithoutNames()
    {
        const PhotoFolder photos;
        photos.writeShot("a.jpg", -2, 0);
        photos.writeShot("b.jpg", 2, 1);
        const ProgramRun merge =
            runProgramIn(photos.path(), {"merge", "--no-metadata", "--reference", "a.jpg",
                                         "--saturation", "1.5", "a.jpg", "b.jpg", "-o", "out.jpg"});
        QCOMPARE(merge.exitCode, 0);
        const QJsonObject told = objectOf(inspectIn(photos, {"--json", "out.jpg"}));
        QCOMPARE(told["metadata"].toArray(), QJsonArray({"xmp"}));
        QCOMPARE(told["merged"].toObject()["sources"].toArray(), QJsonArray());
        QCOMPARE(told["merged"].toObject()["options"].toString(), QString("--saturation 1.5"));
        QFile file(photos.path("out.jpg"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(!file.readAll().contains("a.jpg"));
    }

    void merge_withMetadataFromAnother_keepsThose()
    {
        const PhotoFolder photos;
        photos.writeShot("a.jpg", -2, 0);
        photos.writeShot("b.jpg", 2, 1);
        photos.writeShot("c.png", 1, 7);
        const ProgramRun merge = runProgramIn(photos.path(), {"merge", "--metadata-from", "c.png",
                                                              "a.jpg", "b.jpg", "-o", "out.tif"});
        QCOMPARE(merge.exitCode, 0);
        const QJsonObject told = objectOf(inspectIn(photos, {"--json", "out.tif"}));
        QCOMPARE(told["takenAt"].toString(), QString("2026-06-21T12:00:07.000"));
        QCOMPARE(told["exposureBias"].toDouble(), 1.0);
    }

    void merge_withMetadataFromWhatIsNotThere_isRefusedBeforeTheWork()
    {
        const PhotoFolder photos;
        photos.writeShot("a.jpg", -2, 0);
        photos.writeShot("b.jpg", 2, 1);
        const auto run = [&](const QStringList &options) {
            return runProgramIn(photos.path(), QStringList("merge") + options +
                                                   QStringList({"a.jpg", "b.jpg", "-o", "o.jpg"}));
        };
        const ProgramRun missing = run({"--metadata-from", "none.jpg"});
        QCOMPARE(missing.exitCode, 66);
        QVERIFY(missing.errors.contains("none.jpg"));
        QCOMPARE(run({"--metadata-from", "."}).exitCode, 66);
        QCOMPARE(run({"--metadata-from", "a.jpg", "--no-metadata"}).exitCode, 64);
        QCOMPARE(run({"--metadata-from", ""}).exitCode, 64);
        QVERIFY(!QFile::exists(photos.path("o.jpg")));
        photos.write("bare.png", encodedPicture("png", {6, 4}));
        const ProgramRun bare = run({"--metadata-from", "bare.png"});
        QCOMPARE(bare.exitCode, 0);
        QVERIFY(bare.errors.contains("bare.png: warning: "));
    }

    void whatCannotBeRead_isNamedAndOthersAreShown()
    {
        const PhotoFolder photos;
        photos.writeShot("a.jpg", -2, 0);
        photos.write("letter.jpg", "Just a letter.");
        photos.write("empty.png", "");
        const ProgramRun run =
            inspectIn(photos, {"missing.jpg", ".", "letter.jpg", "empty.png", "a.jpg"});
        QCOMPARE(run.exitCode, 66);
        for (const char *name : {"missing.jpg: ", ".: ", "letter.jpg: ", "empty.png: "})
            QVERIFY2(run.errors.contains(name), run.errors.constData());
        QVERIFY(run.output.startsWith("a.jpg\n"));
        QCOMPARE(inspectIn(photos, {"letter.jpg"}).exitCode, 65);
    }

    void wrongOptions_areRefused()
    {
        const PhotoFolder photos;
        QCOMPARE(inspectIn(photos, {}).exitCode, 64);
        QCOMPARE(inspectIn(photos, {"--nonsense", "a.jpg"}).exitCode, 64);
    }
};

QTEST_GUILESS_MAIN(TestInspect)
#include "tst_veskhdr_inspect.moc"
