#include "ProgramRun.h"

#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

/// The program itself, on devices that the two OpenCL layers play.
namespace {

using Environment = QMap<QString, QString>;

constexpr int kNoDevice = 69;
constexpr int kWrongResult = 70;
constexpr int kUsage = 64;

/// How a run ended, its texts decoded.
struct Run
{
    int exitCode;
    QString output;
    QString errors;

    QJsonObject json() const { return QJsonDocument::fromJson(output.toUtf8()).object(); }
};

Run run(const QStringList &arguments, const char *layer, const Environment &variables)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("OPENCL_LAYERS"), QString::fromLocal8Bit(layer));
    for (auto variable = variables.begin(); variable != variables.end(); ++variable)
        environment.insert(variable.key(), variable.value());
    Program program;
    program.setProcessEnvironment(environment);
    const ProgramRun ended = program.run(arguments);
    return {ended.exitCode, QString::fromUtf8(ended.output), QString::fromUtf8(ended.errors)};
}

/// On a platform with these devices.
Run runScripted(const QStringList &arguments, const QString &devices)
{
    return run(arguments, VESK_SCRIPTED_PLATFORM,
               {{QStringLiteral("VESK_SCRIPT_PLATFORM"), QStringLiteral("Scripted")},
                {QStringLiteral("VESK_SCRIPT_DEVICES"), devices},
                {QStringLiteral("VESK_SCRIPT_EXTENSIONS"), QStringLiteral("cl_one cl_two")}});
}

/// On the machine's own device, as "Test device".
Run runReal(const QStringList &arguments, Environment variables = {})
{
    variables.insert(QStringLiteral("VESK_LAYER_DEVICE_NAME"), QStringLiteral("Test device"));
    return run(arguments, VESK_DEVICE_LAYER, variables);
}

/// A scene of stripes and squares, at so many times the light.
QColor exposed(int x, int y, int light)
{
    return QColor(std::min(255, (x * y / 50 % 90) * light), std::min(255, (x % 80) * light),
                  std::min(255, (y % 70) * light));
}

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

class TestDevicesCommand : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        const Run list = runReal(words("devices --json"));
        hasDriver = !list.json().value(QLatin1String("devices")).toArray().isEmpty();
        QVERIFY(folder.isValid());
        for (int i = 0; i < 6; ++i) { // one more than the tool takes
            QImage picture(300, 200, QImage::Format_RGB32);
            for (int y = 0; y < picture.height(); ++y)
                for (int x = 0; x < picture.width(); ++x)
                    picture.setPixelColor(x, y, exposed(x, y, i + 1));
            const QString path = folder.filePath(QStringLiteral("%1.png").arg(i));
            QVERIFY(picture.save(path));
            pictures << path;
        }
    }

    void cleanup() { QFile::remove(output()); }

    void noDevice_isSaidAndNoFailure()
    {
        const Run list = runScripted(words("devices"), {});
        QCOMPARE(list.exitCode, 0);
        QCOMPARE(list.output,
                 QStringLiteral("There is no OpenCL device that the merge can use.\n"));
        QCOMPARE(list.errors, QString());
        const Run json = runScripted(words("devices --json"), {});
        QCOMPARE(json.exitCode, 0);
        QCOMPARE(json.json().value(QLatin1String("platform")).toString(),
                 QStringLiteral("Scripted"));
        QVERIFY(json.json().value(QLatin1String("devices")).toArray().isEmpty());
    }

    void list_followsTheRulesOfTheRegistry()
    {
        const Run list = runScripted(words("devices --json"), QStringLiteral("GPU A|INTEL|GPU B"));
        const QJsonArray devices = list.json().value(QLatin1String("devices")).toArray();
        QCOMPARE(devices.size(), 1);
        QCOMPARE(devices[0].toObject().value(QLatin1String("name")).toString(),
                 QStringLiteral("GPU A"));
    }

    void json_hasTheThirteenFacts()
    {
        const Run list = runScripted(words("devices --json"), QStringLiteral("GPU A|GPU B"));
        QCOMPARE(list.exitCode, 0);
        const QJsonArray devices = list.json().value(QLatin1String("devices")).toArray();
        QCOMPARE(devices.size(), 2);
        const QJsonObject expected{
            {QStringLiteral("name"), QStringLiteral("GPU B")},
            {QStringLiteral("vendor"), QString::number(1000 + 0x102C)},
            {QStringLiteral("driverVersion"), QString::number(1000 + 0x102D)},
            {QStringLiteral("computeUnits"), 1000 + 0x1002},
            {QStringLiteral("maxClockFrequency"), 1000 + 0x100C},
            {QStringLiteral("localMemSize"), 1000 + 0x1023},
            {QStringLiteral("globalMemSize"), 1000 + 0x101F},
            {QStringLiteral("globalCacheSize"), 1000 + 0x101E},
            {QStringLiteral("globalCacheLineSize"), 1000 + 0x101D},
            {QStringLiteral("globalCacheType"), QJsonValue()}, // no type has that number
            {QStringLiteral("imageSupport"), true},
            {QStringLiteral("type"), QJsonValue()},
            {QStringLiteral("extensions"),
             QJsonArray{QStringLiteral("cl_one"), QStringLiteral("cl_two")}},
        };
        QCOMPARE(devices[1].toObject(), expected);
    }

    void lines_showTheThirteenFacts()
    {
        const Run list = runScripted(words("devices"), QStringLiteral("GPU A"));
        QCOMPARE(list.exitCode, 0);
        const QStringList lines = list.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 13);
        QCOMPARE(lines.first(), QStringLiteral("GPU A"));
        QCOMPARE(lines[4], QStringLiteral("  frequency            4108 MHz"));
        QCOMPARE(lines.last(), QStringLiteral("  extensions           cl_one cl_two"));
    }

    void wrongWords_areUsageErrors_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::newRow("a name without --check") << QStringLiteral("devices GPU");
        QTest::newRow("two names") << QStringLiteral("devices --check GPU CPU");
        QTest::newRow("unknown option") << QStringLiteral("devices --fast");
        QTest::newRow("empty name") << QStringLiteral("merge --device= a.png b.png -o c.png");
    }

    void wrongWords_areUsageErrors()
    {
        QFETCH(QString, arguments);
        const Run refused = runScripted(arguments.split(QLatin1Char(' ')), QStringLiteral("GPU A"));
        QCOMPARE(refused.exitCode, kUsage);
        QVERIFY(refused.errors.startsWith(QLatin1String("veskhdr: ")));
        QCOMPARE(refused.output, QString());
    }

    void check_rightDevice_saysSoWithBothTimes()
    {
        if (!hasDriver)
            QSKIP("no OpenCL driver is installed");
        const Run check = runReal(words("devices --check"));
        QCOMPARE(check.errors, QString());
        QCOMPARE(check.exitCode, 0);
        static const QRegularExpression sentence(
            QStringLiteral("^Test device: equals the processor in all 8388616 bytes; "
                           "device \\d+ ms, processor \\d+ ms\n$"));
        QVERIFY2(sentence.match(check.output).hasMatch(), qPrintable(check.output));
    }

    void check_wrongDevice_failsWithASentence()
    {
        if (!hasDriver)
            QSKIP("no OpenCL driver is installed");
        const Run check = runReal({QStringLiteral("devices"), QStringLiteral("--check"),
                                   QStringLiteral("Test device"), QStringLiteral("--json")},
                                  {{QStringLiteral("VESK_LAYER_WRONG"), QStringLiteral("1")}});
        QCOMPARE(check.exitCode, kWrongResult);
        // One byte of each of the two bands.
        QCOMPARE(check.errors, QStringLiteral("veskhdr: Test device: merges wrongly: 2 of 8388616 "
                                              "bytes differ from what the processor gives\n"));
        const QJsonObject result = check.json()
                                       .value(QLatin1String("devices"))
                                       .toArray()
                                       .at(0)
                                       .toObject()
                                       .value(QLatin1String("check"))
                                       .toObject();
        QCOMPARE(result.value(QLatin1String("equal")), QJsonValue(false));
        QCOMPARE(result.value(QLatin1String("differingBytes")), QJsonValue(2));
    }

    void unfitDevice_isRefusedBeforehand_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("reason");
        QTest::newRow("context") << QStringLiteral("VESK_LAYER_FAIL")
                                 << QStringLiteral("clCreateContext")
                                 << QStringLiteral("it cannot be opened (OpenCL error -5)");
        QTest::newRow("queue") << QStringLiteral("VESK_LAYER_FAIL")
                               << QStringLiteral("clCreateCommandQueue")
                               << QStringLiteral("it takes no commands (OpenCL error -5)");
        QTest::newRow("program") << QStringLiteral("VESK_LAYER_FAIL")
                                 << QStringLiteral("clCreateProgramWithSource")
                                 << QStringLiteral(
                                        "it does not take the program (OpenCL error -5)");
        QTest::newRow("building") << QStringLiteral("VESK_LAYER_FAIL")
                                  << QStringLiteral("clBuildProgram")
                                  << QStringLiteral(
                                         "it cannot build the program (OpenCL error -11)");
        QTest::newRow("kernel") << QStringLiteral("VESK_LAYER_FAIL")
                                << QStringLiteral("clCreateKernel")
                                << QStringLiteral("it does not find the kernel in the program "
                                                  "(OpenCL error -5)");
        QTest::newRow("memory") << QStringLiteral("VESK_LAYER_FAIL")
                                << QStringLiteral("clCreateBuffer:2")
                                << QStringLiteral("it has not enough memory");
        QTest::newRow("work group")
            << QStringLiteral("VESK_LAYER_GROUP_SIZE") << QStringLiteral("64")
            << QStringLiteral("it takes groups of 64 work items at most, "
                              "128 are needed");
        QTest::newRow("fails later")
            << QStringLiteral("VESK_LAYER_FAIL") << QStringLiteral("clFinish")
            << QStringLiteral("it failed to merge");
    }

    void unfitDevice_isRefusedBeforehand()
    {
        if (!hasDriver)
            QSKIP("no OpenCL driver is installed");
        QFETCH(QString, variable);
        QFETCH(QString, value);
        QFETCH(QString, reason);
        const Run merge = runReal(mergeOn(QStringLiteral("Test device")), {{variable, value}});
        QCOMPARE(merge.exitCode, kNoDevice);
        QCOMPARE(merge.errors, QStringLiteral("veskhdr: Test device: %1\n").arg(reason));
        QVERIFY(!QFile::exists(output()));
    }

    void check_unfitDevice_fails()
    {
        if (!hasDriver)
            QSKIP("no OpenCL driver is installed");
        const Run check =
            runReal(words("devices --check"),
                    {{QStringLiteral("VESK_LAYER_FAIL"), QStringLiteral("clBuildProgram")}});
        QCOMPARE(check.exitCode, kNoDevice);
        QCOMPARE(check.errors, QStringLiteral("veskhdr: Test device: it cannot build the program "
                                              "(OpenCL error -11)\n"));
        QCOMPARE(check.output, QString());
    }

    void check_noDevice_fails()
    {
        const Run check = runScripted(words("devices --check"), {});
        QCOMPARE(check.exitCode, kNoDevice);
        QCOMPARE(check.errors, QStringLiteral("veskhdr: there is no OpenCL device to check\n"));
    }

    void unknownName_isRefused()
    {
        const QString reason =
            QStringLiteral("veskhdr: GPU B: no such OpenCL device, see 'veskhdr devices'\n");
        const Run check = runScripted(
            {QStringLiteral("devices"), QStringLiteral("--check"), QStringLiteral("GPU B")},
            QStringLiteral("GPU A"));
        QCOMPARE(check.exitCode, kNoDevice);
        QCOMPARE(check.errors, reason);
        const Run merge = runScripted(mergeOn(QStringLiteral("GPU B")), QStringLiteral("GPU A"));
        QCOMPARE(merge.exitCode, kNoDevice);
        QCOMPARE(merge.errors, reason);
        QVERIFY(!QFile::exists(output()));
    }

    void mergeOnDevice_equalsTheProcessor_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::newRow("aligned") << QStringList();
        QTest::newRow("not aligned") << QStringList{QStringLiteral("--no-align")};
    }

    void mergeOnDevice_equalsTheProcessor()
    {
        if (!hasDriver)
            QSKIP("no OpenCL driver is installed");
        QFETCH(QStringList, options);
        QImage results[2];
        const QString names[] = {QStringLiteral("Test device"), QStringLiteral("processor")};
        for (int i = 0; i < 2; ++i) {
            const Run merge =
                runReal(mergeOn(names[i]) + options + QStringList{QStringLiteral("--json")});
            QVERIFY2(merge.exitCode == 0, qPrintable(merge.errors));
            QCOMPARE(merge.json().value(QLatin1String("device")).toString(), names[i]);
            QVERIFY(results[i].load(output()));
            QFile::remove(output());
        }
        QCOMPARE(results[0], results[1]);
    }

    void mergeOnDevice_leavesTheChoiceInTheSettingsAlone()
    {
        if (!hasDriver)
            QSKIP("no OpenCL driver is installed");
        const QDir data(qEnvironmentVariable("XDG_DATA_HOME"));
        QCOMPARE(runReal(mergeOn(QStringLiteral("Test device"))).exitCode, 0);
        QVERIFY(!data.exists() || data.isEmpty());
    }

private:
    QString output() const { return folder.filePath(QStringLiteral("merged.png")); }

    QStringList mergeOn(const QString &device) const
    {
        return QStringList{QStringLiteral("merge")} + pictures +
               QStringList{QStringLiteral("-o"), output(), QStringLiteral("--device"), device};
    }

    QTemporaryDir folder;
    QStringList pictures;
    bool hasDriver = false;
};

QTEST_GUILESS_MAIN(TestDevicesCommand)
#include "tst_veskhdr_devices.moc"
