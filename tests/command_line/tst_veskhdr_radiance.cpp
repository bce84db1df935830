#include "ProgramRun.h"
#include "dng_writer.h"
#include "picture_reader.h"

#include <QColorSpace>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

/// 'veskhdr merge' to the light of the scene.
class TestVeskhdrRadiance : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void merge_cameraShots_giveLightByTheirExposures_data();
    void merge_cameraShots_giveLightByTheirExposures();
    void merge_nameOfAFileForLight_isEnough();
    void merge_shotsWithoutExif_areMeasuredByTheirPixels();
    void merge_rawFiles_giveTheLightOfTheScene_data();
    void merge_rawFiles_giveTheLightOfTheScene();
    void merge_wrongWords_areRefused_data();
    void merge_wrongWords_areRefused();

private:
    ProgramRun run(const QStringList &arguments) const
    {
        return runProgramIn(folder.path(), QStringList("merge") + arguments);
    }

    QTemporaryDir folder;
    const QStringList shots{"sample_01.jpg", "sample_02.jpg", "sample_03.jpg", "sample_04.jpg",
                            "sample_05.jpg"};
};

/// Five shots of a rendered room, two stops apart, with the camera's data; and three without.
void TestVeskhdrRadiance::initTestCase()
{
    const QString program = qEnvironmentVariable("VESK_BIN_DIR") + "/sample_bracket";
    QCOMPARE(QProcess::execute(
                 program, {"--size", "480x320", "--shots", "5", "--motion", "none", folder.path()}),
             0);
    for (const QString &shot : shots)
        QVERIFY2(QFile::exists(folder.filePath(shot)), qPrintable(shot));
    for (const int number : {2, 3, 4}) {
        QImage bare(folder.filePath(QString("sample_0%1.jpg").arg(number)));
        QVERIFY(bare.save(folder.filePath(QString("bare_%1.png").arg(number))));
    }
}

void TestVeskhdrRadiance::merge_cameraShots_giveLightByTheirExposures_data()
{
    QTest::addColumn<QString>("output");
    QTest::addColumn<int>("bits");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("OpenEXR") << "light.exr" << 16 << QStringList();
    QTest::newRow("OpenEXR in floats") << "deep.exr" << 32 << QStringList{"--depth", "32"};
    QTest::newRow("Radiance") << "light.hdr" << 32 << QStringList();
    QTest::newRow("TIFF") << "light.tif" << 32 << QStringList();
}

void TestVeskhdrRadiance::merge_cameraShots_giveLightByTheirExposures()
{
    QFETCH(QString, output);
    QFETCH(int, bits);
    QFETCH(QStringList, options);
    const ProgramRun done =
        run(shots + options + QStringList{"--method", "radiance", "--json", "-o", output});
    QCOMPARE(done.exitCode, 0);
    QCOMPARE(done.errors, QByteArray());
    QVERIFY(QFile(folder.filePath(output)).size() > 1000);
    const QJsonObject told = QJsonDocument::fromJson(done.output).object();
    QCOMPARE(told["method"].toString(), QString("radiance"));
    QCOMPARE(told["bitsPerChannel"].toInt(), bits);
    QCOMPARE(told["exposuresKnown"].toBool(), true);
    QCOMPARE(told["curve"].toString(), QString("recovered"));
    const QJsonArray exposures = told["exposures"].toArray();
    QCOMPARE(exposures.size(), 5);
    for (int i = 1; i < 5; ++i) {
        const double stops = std::log2(exposures[i].toDouble() / exposures[i - 1].toDouble());
        QVERIFY2(std::abs(stops - 2.0) < 0.1, qPrintable(QString::number(stops)));
    }
}

void TestVeskhdrRadiance::merge_nameOfAFileForLight_isEnough()
{
    const ProgramRun done = run(shots + QStringList{"--json", "-o", "named.hdr"});
    QCOMPARE(done.exitCode, 0);
    QCOMPARE(QJsonDocument::fromJson(done.output).object()["method"].toString(),
             QString("radiance"));
}

void TestVeskhdrRadiance::merge_shotsWithoutExif_areMeasuredByTheirPixels()
{
    const ProgramRun done =
        run({"bare_2.png", "bare_3.png", "bare_4.png", "--json", "--no-align", "-o", "bare.exr"});
    QCOMPARE(done.exitCode, 0);
    QVERIFY(done.errors.contains("warning: not all pictures tell their exposures"));
    const QJsonObject told = QJsonDocument::fromJson(done.output).object();
    QCOMPARE(told["exposuresKnown"].toBool(), false);
    const QJsonArray exposures = told["exposures"].toArray();
    for (int i = 1; i < 3; ++i) {
        const double stops = std::log2(exposures[i].toDouble() / exposures[i - 1].toDouble());
        // Only so near: the sample's film has another tone curve than sRGB's, which is assumed.
        QVERIFY2(std::abs(stops - 2.0) < 0.5, qPrintable(QString::number(stops)));
    }
}

void TestVeskhdrRadiance::merge_rawFiles_giveTheLightOfTheScene_data()
{
    QTest::addColumn<QString>("space");
    QTest::newRow("sRGB") << "srgb";
    QTest::newRow("Display P3") << "p3";
}

/// Grey from white down by ten stops, of which a shot that is five stops shorter loses half.
void TestVeskhdrRadiance::merge_rawFiles_giveTheLightOfTheScene()
{
    QFETCH(QString, space);
    constexpr int kWidth = 320;
    const auto lightAt = [](int x) { return std::exp2(-10.0 * x / kWidth); };
    QStringList words{"--method", "radiance", "--no-align",  "--raw-space",
                      space,      "-o",       space + ".tif"};
    for (const double factor : {1.0, 32.0}) {
        DngRecipe recipe;
        recipe.width = kWidth;
        recipe.takenAt = "2026:06:21 12:00:00";
        recipe.exposureSeconds = 0.01 * factor;
        recipe.scene = [=](int x, int, int) { return factor * lightAt(x) * 0.9; };
        const QString name = QStringLiteral("raw_%1_%2.dng").arg(space).arg(factor);
        QVERIFY(writeDng(folder.filePath(name), recipe));
        words += name;
    }
    const ProgramRun done = run(words);
    QVERIFY2(done.exitCode == 0, done.errors.constData());
    ReadOptions how;
    how.light = ReadOptions::Light::Floats;
    const QImage light = picture::read(folder.filePath(space + ".tif"), how).image;
    QCOMPARE(light.format(), QImage::Format_RGBX32FPx4);
    QCOMPARE(light.colorSpace().primaries(),
             space == "p3" ? QColorSpace::Primaries::DciP3D65 : QColorSpace::Primaries::SRgb);
    const auto *row = reinterpret_cast<const float *>(light.constScanLine(24));
    const double scale = double(row[4 * 100]) / lightAt(100);
    for (int x = 4; x < kWidth - 4; ++x) {
        for (int c = 0; c < 3; ++c) {
            const double stops = std::log2(double(row[4 * x + c]) / (scale * lightAt(x)));
            QVERIFY2(std::abs(stops) < 0.03, qPrintable(QString("%1: %2").arg(x).arg(stops)));
        }
    }
}

void TestVeskhdrRadiance::merge_wrongWords_areRefused_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::newRow("radiance to PNG") << QStringList{"--method", "radiance", "-o", "x.png"};
    QTest::newRow("fusion to OpenEXR") << QStringList{"--method", "fusion", "-o", "x.exr"};
    QTest::newRow("fusion in floats") << QStringList{"--depth", "32", "-o", "x.tif"};
    QTest::newRow("radiance of 8 bits") << QStringList{"--depth", "8", "-o", "x.exr"};
    QTest::newRow("depth of Radiance files") << QStringList{"--depth", "16", "-o", "x.hdr"};
    QTest::newRow("contrast of light") << QStringList{"--contrast", "0.1", "-o", "x.exr"};
    QTest::newRow("space of light") << QStringList{"--output-space", "p3", "-o", "x.exr"};
    QTest::newRow("a mask of light") << QStringList{"--ghost-mask", "m.exr", "-o", "x.exr"};
}

void TestVeskhdrRadiance::merge_wrongWords_areRefused()
{
    QFETCH(QStringList, words);
    const ProgramRun done = run(shots + words);
    QCOMPARE(done.exitCode, 64);
    QVERIFY(!done.errors.isEmpty());
    QVERIFY(!QFile::exists(folder.filePath(words.last())));
}

QTEST_GUILESS_MAIN(TestVeskhdrRadiance)
#include "tst_veskhdr_radiance.moc"
