#include "BrightJpeg.h"
#include "ProgramRun.h"

#include <QFile>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

#ifdef VESK_WITH_AVIF
constexpr bool kHasAvif = true;
#else
constexpr bool kHasAvif = false;
#endif
#ifdef VESK_WITH_JXL
constexpr bool kHasJxl = true;
#else
constexpr bool kHasJxl = false;
#endif

/// 'veskhdr merge --hdr': pictures for screens that show more than white.
class TestVeskhdrHdr : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void merge_toJpeg_addsAGainMapToTheUsualPicture();
    void merge_toJpeg_isShownByInspect();
    void merge_peak_boundsTheHeadroom();
    void merge_otherSpace_keepsWhiteAndMap();
    void merge_toBrightFormats_writesTenBits_data();
    void merge_toBrightFormats_writesTenBits();
    void merge_wrongWords_areRefused_data();
    void merge_wrongWords_areRefused();

private:
    ProgramRun run(const QStringList &arguments) const
    {
        return runProgramIn(folder.path(), QStringList("merge") + shots + arguments);
    }
    QByteArray contents(const char *name) const
    {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder;
    const QStringList shots{"sample_01.jpg", "sample_02.jpg", "sample_03.jpg"};
};

/// Three shots of a rendered room with a window.
void TestVeskhdrHdr::initTestCase()
{
    const QString program = qEnvironmentVariable("VESK_BIN_DIR") + "/sample_bracket";
    QCOMPARE(QProcess::execute(
                 program, {"--size", "360x240", "--shots", "3", "--motion", "none", folder.path()}),
             0);
    for (const QString &shot : shots)
        QVERIFY2(QFile::exists(folder.filePath(shot)), qPrintable(shot));
    QCOMPARE(run({"-o", "plain.jpg"}).exitCode, 0);
    const ProgramRun done = run({"--hdr", "--json", "-o", "bright.jpg"});
    QCOMPARE(done.exitCode, 0);
    const QJsonObject told = QJsonDocument::fromJson(done.output).object();
    QCOMPARE(told["method"].toString(), QString("fusion"));
    QVERIFY(told["headroom"].toDouble() > 0.5);
    QCOMPARE(told["exposuresKnown"].toBool(), true);
}

void TestVeskhdrHdr::merge_toJpeg_addsAGainMapToTheUsualPicture()
{
    const BrightJpeg bright(contents("bright.jpg"));
    QCOMPARE(bright.problem, QByteArray());
    QCOMPARE(bright.base,
             QImage::fromData(contents("plain.jpg")).convertToFormat(QImage::Format_RGB32));
    QCOMPARE(bright.map.size(), QSize(180, 120));
    // The window: its light is brighter than the picture's white.
    const std::vector<float> shown = bright.shown();
    QVERIFY(*std::max_element(shown.begin(), shown.end()) > 1.4F);
}

void TestVeskhdrHdr::merge_toJpeg_isShownByInspect()
{
    const ProgramRun json = runProgramIn(folder.path(), {"inspect", "--json", "bright.jpg"});
    QCOMPARE(json.exitCode, 0);
    const QJsonObject map = QJsonDocument::fromJson(json.output).object()["gainMap"].toObject();
    QCOMPARE(map["width"].toInt(), 180);
    QCOMPARE(map["height"].toInt(), 120);
    QCOMPARE(map["form"].toString(), QString("iso"));
    QCOMPARE(map["least"].toDouble(), 0.0);
    QVERIFY(map["most"].toDouble() > 0.5);
    QCOMPARE(map["headroom"].toDouble(), map["most"].toDouble());
    const ProgramRun plain = runProgramIn(folder.path(), {"inspect", "--json", "plain.jpg"});
    QVERIFY(QJsonDocument::fromJson(plain.output).object()["gainMap"].isNull());
    const ProgramRun lines = runProgramIn(folder.path(), {"inspect", "bright.jpg"});
    QVERIFY(lines.output.contains("gain map     180 x 120, 0.00 to "));
}

void TestVeskhdrHdr::merge_peak_boundsTheHeadroom()
{
    const ProgramRun done = run({"--hdr", "--peak", "0.5", "--json", "-o", "dim.jpg"});
    QCOMPARE(done.exitCode, 0);
    QCOMPARE(QJsonDocument::fromJson(done.output).object()["headroom"].toDouble(), 0.5);
    const BrightJpeg dim(contents("dim.jpg"));
    QCOMPARE(dim.problem, QByteArray());
    QCOMPARE(dim.alternateHeadroom, 0.5);
    const std::vector<float> shown = dim.shown();
    QVERIFY(*std::max_element(shown.begin(), shown.end()) < 1.45F);
}

/// The light follows the picture to its new primaries: the maps differ little.
void TestVeskhdrHdr::merge_otherSpace_keepsWhiteAndMap()
{
    QCOMPARE(run({"--hdr", "--output-space", "p3", "-o", "p3.jpg"}).exitCode, 0);
    const BrightJpeg other(contents("p3.jpg"));
    QCOMPARE(other.problem, QByteArray());
    const BrightJpeg own(contents("bright.jpg"));
    QVERIFY(std::abs(other.alternateHeadroom - own.alternateHeadroom) < 0.25);
    double sum = 0.0;
    for (int y = 0; y < own.map.height(); ++y)
        for (int x = 0; x < own.map.width(); ++x)
            sum += std::abs(qGreen(own.map.pixel(x, y)) * own.alternateHeadroom -
                            qGreen(other.map.pixel(x, y)) * other.alternateHeadroom) /
                   255.0;
    const double stops = sum / (180.0 * 120.0);
    QVERIFY2(stops < 0.05, qPrintable(QString::number(stops)));
}

void TestVeskhdrHdr::merge_toBrightFormats_writesTenBits_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<bool>("isBuilt");
    QTest::newRow("AVIF") << QStringList{"-o", "bright.avif"} << QByteArray("AVIF") << kHasAvif;
    QTest::newRow("JPEG XL") << QStringList{"-o", "bright.jxl"} << QByteArray("JPEG XL") << kHasJxl;
    QTest::newRow("by its format's name")
        << QStringList{"--format", "jxl", "-o", "bright.bin"} << QByteArray("JPEG XL") << kHasJxl;
}

void TestVeskhdrHdr::merge_toBrightFormats_writesTenBits()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, kind);
    QFETCH(bool, isBuilt);
    const ProgramRun done = run(QStringList{"--hdr", "--quality", "80", "--json"} + arguments);
    if (!isBuilt) {
        QCOMPARE(done.exitCode, 64);
        QVERIFY(done.errors.contains("this program was built without " + kind));
        return;
    }
    QCOMPARE(done.exitCode, 0);
    QVERIFY(!done.errors.contains("--quality"));
    const QJsonObject told = QJsonDocument::fromJson(done.output).object();
    QCOMPARE(told["bitsPerChannel"].toInt(), 10);
    QCOMPARE(told["colourSpace"].toString(), QString("Rec. 2020 PQ"));
    QVERIFY(told["headroom"].toDouble() > 0.5);
    QVERIFY(contents(arguments.last().toLatin1().constData()).size() > 1000);
}

void TestVeskhdrHdr::merge_wrongWords_areRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("to PNG") << QStringList{"--hdr", "-o", "a.png"}
                            << QByteArray("--hdr needs .jpg, .avif or .jxl");
    QTest::newRow("to TIFF") << QStringList{"--hdr", "-o", "a.tif"}
                             << QByteArray("--hdr needs .jpg, .avif or .jxl");
    QTest::newRow("to OpenEXR") << QStringList{"--hdr", "-o", "a.exr"}
                                << QByteArray("--hdr needs .jpg, .avif or .jxl");
    QTest::newRow("AVIF without it")
        << QStringList{"-o", "a.avif"} << QByteArray("AVIF and JPEG XL files go with --hdr");
    QTest::newRow("a depth of AVIF")
        << QStringList{"--hdr", "--depth", "16", "-o", "a.jxl"} << QByteArray("have 10 bits");
    QTest::newRow("colours of AVIF") << QStringList{"--hdr", "--output-space", "p3", "-o", "a.jxl"}
                                     << QByteArray("have 10 bits");
    QTest::newRow("the mean") << QStringList{"--hdr", "--method", "mean", "-o", "a.jpg"}
                              << QByteArray("--hdr goes with --method fusion");
    QTest::newRow("the radiance") << QStringList{"--hdr", "--method", "radiance", "-o", "a.jpg"}
                                  << QByteArray("--hdr goes with --method fusion");
    QTest::newRow("a peak alone") << QStringList{"--peak", "2", "-o", "a.jpg"}
                                  << QByteArray("--peak goes with --hdr");
    for (const char *peak : {"0", "0.4", "9", "nan", "much"})
        QTest::newRow(peak) << QStringList{"--hdr", "--peak", peak, "-o", "a.jpg"}
                            << QByteArray("--peak must be a number from 0.5 to 8");
}

void TestVeskhdrHdr::merge_wrongWords_areRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const ProgramRun done = run(arguments);
    QCOMPARE(done.exitCode, 64);
    if (kHasJxl || !arguments.last().endsWith(".jxl"))
        QVERIFY2(done.errors.contains(message), done.errors.constData());
    QVERIFY(!QFile::exists(folder.filePath(arguments.last())));
}

QTEST_GUILESS_MAIN(TestVeskhdrHdr)
#include "tst_veskhdr_hdr.moc"
