#include "ProgramRun.h"

#include "develop.h"
#include "picture_reader.h"
#include "picture_writer.h"

#include <QColorSpace>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

Q_DECLARE_METATYPE(develop::Method)

/// 'veskhdr develop'.
class TestVeskhdrDevelop : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void develop_everyMethod_equalsTheLibrary_data();
    void develop_everyMethod_equalsTheLibrary();
    void develop_everyFormat_isWrittenAtItsDepth_data();
    void develop_everyFormat_isWrittenAtItsDepth();
    void develop_result_isMarked();
    void develop_pictureForAScreen_isRefused();
    void develop_missingFile_isNamed();
    void develop_existingResult_stays();
    void develop_wrongWords_areRefused_data();
    void develop_wrongWords_areRefused();

private:
    ProgramRun run(const QStringList &arguments) const
    {
        return runProgramIn(folder.path(), QStringList("develop") + arguments);
    }
    QImage read(const QString &name, ReadOptions::Light how = ReadOptions::Light::Refused) const
    {
        ReadOptions options;
        options.depth = ReadOptions::Depth::AsStored;
        options.light = how;
        return picture::read(folder.filePath(name), options).image;
    }

    QTemporaryDir folder;
};

void TestVeskhdrDevelop::initTestCase()
{
    QImage light(90, 60, QImage::Format_RGBX32FPx4);
    for (int y = 0; y < 60; ++y) {
        auto *pixel = reinterpret_cast<float *>(light.scanLine(y));
        for (int x = 0; x < 90; ++x, pixel += 4) {
            pixel[0] = static_cast<float>(std::exp2(x / 7.5 - 8));
            pixel[1] = pixel[0] * 0.75F;
            pixel[2] = pixel[0] * static_cast<float>(y) / 60;
            pixel[3] = 1.0F;
        }
    }
    light.setColorSpace(QColorSpace::SRgbLinear);
    WriteOptions how;
    how.bitsPerSample = 32;
    QCOMPARE(picture::write(light, folder.filePath("light.tif"), PictureFormat::Tiff, how).reason,
             QString());
    QImage screen(8, 8, QImage::Format_RGB32);
    screen.fill(Qt::gray);
    QVERIFY(screen.save(folder.filePath("screen.png")));
}

void TestVeskhdrDevelop::develop_everyMethod_equalsTheLibrary_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<develop::Method>("method");
    QTest::addColumn<double>("exposure");
    using develop::Method;
    QTest::newRow("as it is") << QStringList() << Method::Local << 0.0;
    QTest::newRow("local") << QStringList{"--method", "local"} << Method::Local << 0.0;
    QTest::newRow("global") << QStringList{"--method", "global"} << Method::Global << 0.0;
    QTest::newRow("exposure") << QStringList{"--method", "exposure", "--exposure", "-2.5"}
                              << Method::Exposure << -2.5;
}

void TestVeskhdrDevelop::develop_everyMethod_equalsTheLibrary()
{
    QFETCH(const QStringList, options);
    develop::Options how;
    QFETCH(const develop::Method, method);
    QFETCH(const double, exposure);
    how.method = method;
    how.exposure = exposure;
    const ProgramRun done = run(QStringList{"light.tif", "-o", "result.png", "--force"} + options);
    QCOMPARE(done.errors, QByteArray());
    QCOMPARE(done.exitCode, 0);
    const QImage light = read("light.tif", ReadOptions::Light::Floats);
    QCOMPARE(light.format(), QImage::Format_RGBX32FPx4);
    QImage result = read("result.png");
    QCOMPARE(result.colorSpace().primaries(), QColorSpace::Primaries::SRgb);
    QImage expected = develop::picture(light, how).picture;
    result.setColorSpace({});
    expected.setColorSpace({});
    QCOMPARE(result, expected);
}

void TestVeskhdrDevelop::develop_everyFormat_isWrittenAtItsDepth_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("bits");
    QTest::newRow("png") << QStringList{"-o", "a.png"} << 64;
    QTest::newRow("png of 8 bits") << QStringList{"-o", "b.png", "--depth", "8"} << 32;
    QTest::newRow("tiff") << QStringList{"-o", "c.tif"} << 64;
    QTest::newRow("jpeg") << QStringList{"-o", "d.jpg", "--quality", "80"} << 32;
}

void TestVeskhdrDevelop::develop_everyFormat_isWrittenAtItsDepth()
{
    QFETCH(const QStringList, options);
    QFETCH(const int, bits);
    QCOMPARE(run(QStringList("light.tif") + options).exitCode, 0);
    QCOMPARE(read(options.at(1)).depth(), bits);
    QCOMPARE(read(options.at(1)).size(), QSize(90, 60));
}

void TestVeskhdrDevelop::develop_result_isMarked()
{
    QCOMPARE(run({"light.tif", "-o", "marked.tif", "--method", "global"}).exitCode, 0);
    const QByteArray report =
        runProgramIn(folder.path(), {"inspect", "--json", "marked.tif"}).output;
    QVERIFY2(report.contains("\"develop\"") && report.contains("light.tif") &&
                 report.contains("global"),
             report);
}

void TestVeskhdrDevelop::develop_pictureForAScreen_isRefused()
{
    const ProgramRun done = run({"screen.png", "-o", "no.png"});
    QCOMPARE(done.exitCode, 65);
    QVERIFY2(done.errors.startsWith("veskhdr: screen.png: "), done.errors);
    QVERIFY(!QFile::exists(folder.filePath("no.png")));
}

void TestVeskhdrDevelop::develop_missingFile_isNamed()
{
    const ProgramRun done = run({"missing.exr", "-o", "no.png"});
    QCOMPARE(done.exitCode, 66);
    QVERIFY2(done.errors.startsWith("veskhdr: missing.exr: "), done.errors);
}

void TestVeskhdrDevelop::develop_existingResult_stays()
{
    QFile file(folder.filePath("mine.png"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("mine");
    file.close();
    QCOMPARE(run({"light.tif", "-o", "mine.png"}).exitCode, 73);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("mine"));
    QCOMPARE(run({"light.tif", "-o", "light.tif", "--force"}).exitCode, 64);
}

void TestVeskhdrDevelop::develop_wrongWords_areRefused_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::newRow("no file") << QStringList{"-o", "x.png"};
    QTest::newRow("two files") << QStringList{"light.tif", "light.tif", "-o", "x.png"};
    QTest::newRow("no output") << QStringList{"light.tif"};
    QTest::newRow("two outputs") << QStringList{"light.tif", "-o", "x.png", "-o", "y.png"};
    QTest::newRow("format for light") << QStringList{"light.tif", "-o", "x.exr"};
    QTest::newRow("unknown suffix") << QStringList{"light.tif", "-o", "x.bmp"};
    QTest::newRow("method") << QStringList{"light.tif", "-o", "x.png", "--method", "best"};
    QTest::newRow("exposure") << QStringList{"light.tif", "-o", "x.png", "--exposure", "17"};
    QTest::newRow("exposure in words")
        << QStringList{"light.tif", "-o", "x.png", "--exposure", "much"};
    QTest::newRow("depth") << QStringList{"light.tif", "-o", "x.png", "--depth", "12"};
    QTest::newRow("deep jpeg") << QStringList{"light.tif", "-o", "x.jpg", "--depth", "16"};
    QTest::newRow("quality") << QStringList{"light.tif", "-o", "x.jpg", "--quality", "101"};
    QTest::newRow("megapixels") << QStringList{"light.tif", "-o", "x.png", "--max-megapixels", "0"};
    QTest::newRow("unknown option") << QStringList{"light.tif", "-o", "x.png", "--bright"};
}

void TestVeskhdrDevelop::develop_wrongWords_areRefused()
{
    QFETCH(const QStringList, words);
    const ProgramRun done = run(words);
    QCOMPARE(done.exitCode, 64);
    QCOMPARE(linesOf(done.errors).size(), 1);
    QVERIFY(!QFile::exists(folder.filePath("x.png")) && !QFile::exists(folder.filePath("x.jpg")));
}

QTEST_GUILESS_MAIN(TestVeskhdrDevelop)
#include "tst_veskhdr_develop.moc"
