#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Outcome
{
    int exitCode = -1;
    QByteArray output;
    QByteArray errors;
};

Outcome run(const QStringList &arguments)
{
    constexpr int kTimeLimitMs = 120000;
    QProcess program;
    program.start(qEnvironmentVariable("VESK_BIN_DIR") + QStringLiteral("/sample_bracket"),
                  arguments);
    if (!program.waitForFinished(kTimeLimitMs) || program.exitStatus() != QProcess::NormalExit)
        return {};
    return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

const QStringList kSmall{QStringLiteral("--size"), QStringLiteral("120x80")};

} // namespace

class TestSampleBracketProgram : public QObject
{
    Q_OBJECT

private slots:
    void json_shiftsGiven_namesFilesAndOffsets();
    void motion_given_writesTheTrueMatrices_data();
    void motion_given_writesTheTrueMatrices();
    void sameSeed_otherThreads_writesTheSameBytes();
    void otherSeed_writesOtherBytes();
    void png_isWrittenAsPng();
    void moving_writesWhatMoved();
    void badOption_saysWhichAndWritesNothing_data();
    void badOption_saysWhichAndWritesNothing();
    void folderIsAFile_failsWithAMessage();
};

void TestSampleBracketProgram::json_shiftsGiven_namesFilesAndOffsets()
{
    const QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("new/folder"));
    const Outcome outcome =
        run(kSmall + QStringList{QStringLiteral("--json"), QStringLiteral("--shots"),
                                 QStringLiteral("2"), QStringLiteral("--shifts"),
                                 QStringLiteral("0,0; -3,4"), target});
    QCOMPARE(outcome.exitCode, 0);
    const QJsonObject object = QJsonDocument::fromJson(outcome.output).object();
    QCOMPARE(object[QStringLiteral("size")].toArray(), (QJsonArray{120, 80}));
    const QJsonArray shots = object[QStringLiteral("shots")].toArray();
    QCOMPARE(shots.size(), 2);
    const QJsonObject second = shots[1].toObject();
    QCOMPARE(second[QStringLiteral("offset")].toArray(), (QJsonArray{-3, 4}));
    QCOMPARE(second[QStringLiteral("stops")].toDouble(), 1.0);
    QCOMPARE(second[QStringLiteral("path")].toString(), target + QStringLiteral("/sample_02.jpg"));
    QCOMPARE(QImage(second[QStringLiteral("path")].toString()).size(), QSize(120, 80));
}

void TestSampleBracketProgram::motion_given_writesTheTrueMatrices_data()
{
    QTest::addColumn<QString>("motion");
    QTest::addColumn<bool>("isMoved");
    QTest::addColumn<bool>("isTurned");
    QTest::newRow("none") << "none" << false << false;
    QTest::newRow("shift") << "shift" << true << false;
    QTest::newRow("hand") << "hand" << true << true;
    QTest::newRow("strong") << "strong" << true << true;
}

void TestSampleBracketProgram::motion_given_writesTheTrueMatrices()
{
    QFETCH(QString, motion);
    QFETCH(bool, isMoved);
    QFETCH(bool, isTurned);
    const QTemporaryDir folder;
    const QStringList words{"--size", "260x200", "--shots", "3", "--motion", motion};
    QCOMPARE(run(words + QStringList{folder.path()}).exitCode, 0);
    const QByteArray json = contentOf(folder.filePath("motion.json"));
    const QJsonArray shots = QJsonDocument::fromJson(json).object()["shots"].toArray();
    QCOMPARE(shots.size(), 3);
    QCOMPARE(shots[2].toObject()["file"].toString(), QString("sample_03.jpg"));
    const QJsonArray first = shots[0].toObject()["matrix"].toArray();
    QCOMPARE(first, QJsonArray({QJsonArray{1, 0, 0}, QJsonArray{0, 1, 0}, QJsonArray{0, 0, 1}}));
    const QJsonArray last = shots[2].toObject()["matrix"].toArray();
    QCOMPARE(last != first, isMoved);
    QCOMPARE(last[0].toArray()[1].toDouble() != 0, isTurned);
    QCOMPARE(last[2].toArray()[0].toDouble() != 0, isTurned);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 4);
}

void TestSampleBracketProgram::sameSeed_otherThreads_writesTheSameBytes()
{
    const QTemporaryDir folder;
    const QStringList options = kSmall + QStringList{QStringLiteral("--seed"), QStringLiteral("9")};
    const QString first = folder.filePath(QStringLiteral("first"));
    const QString second = folder.filePath(QStringLiteral("second"));
    QCOMPARE(run(options + QStringList{QStringLiteral("--threads"), QStringLiteral("1"), first})
                 .exitCode,
             0);
    QCOMPARE(run(options + QStringList{QStringLiteral("--threads"), QStringLiteral("3"), second})
                 .exitCode,
             0);
    const QStringList names = QDir(first).entryList(QDir::Files);
    QCOMPARE(names.size(), 5);
    for (const QString &name : names) {
        const QByteArray content = contentOf(first + QLatin1Char('/') + name);
        QVERIFY(!content.isEmpty());
        QCOMPARE(contentOf(second + QLatin1Char('/') + name), content);
    }
}

void TestSampleBracketProgram::otherSeed_writesOtherBytes()
{
    const QTemporaryDir folder;
    const QString first = folder.filePath(QStringLiteral("first"));
    const QString second = folder.filePath(QStringLiteral("second"));
    QCOMPARE(run(kSmall + QStringList{first}).exitCode, 0);
    QCOMPARE(
        run(kSmall + QStringList{QStringLiteral("--seed"), QStringLiteral("2"), second}).exitCode,
        0);
    const QString name = QStringLiteral("/sample_01.jpg");
    QVERIFY(contentOf(first + name) != contentOf(second + name));
}

void TestSampleBracketProgram::png_isWrittenAsPng()
{
    const QTemporaryDir folder;
    QCOMPARE(
        run(kSmall + QStringList{QStringLiteral("--format"), QStringLiteral("png"), folder.path()})
            .exitCode,
        0);
    QVERIFY(contentOf(folder.filePath(QStringLiteral("sample_05.png"))).startsWith("\x89PNG"));
}

void TestSampleBracketProgram::moving_writesWhatMoved()
{
    const QTemporaryDir folder;
    QCOMPARE(run(kSmall + QStringList{QStringLiteral("--moving"), QStringLiteral("--shots"),
                                      QStringLiteral("2"), folder.path()})
                 .exitCode,
             0);
    const QImage truth(folder.filePath(QStringLiteral("sample_moving.png")));
    QCOMPARE(truth.size(), QSize(120, 80));
    int person = 0;
    for (int y = 0; y < truth.height(); ++y)
        for (int x = 0; x < truth.width(); ++x)
            person += qGray(truth.pixel(x, y)) == 255;
    QVERIFY2(person > 100 && person < 2400, qPrintable(QString::number(person)));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 3);
}

void TestSampleBracketProgram::badOption_saysWhichAndWritesNothing_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("named");
    const auto row = [](const char *name, const QString &option, const QString &value) {
        QTest::newRow(name) << QStringList{option, value} << option.toLatin1();
    };
    row("size without height", QStringLiteral("--size"), QStringLiteral("1800"));
    row("empty size", QStringLiteral("--size"), QStringLiteral("0x10"));
    row("huge size", QStringLiteral("--size"), QStringLiteral("99999x99999"));
    row("no shot", QStringLiteral("--shots"), QStringLiteral("0"));
    row("fewer shifts than shots", QStringLiteral("--shifts"), QStringLiteral("0,0;1,1"));
    row("shifts that are none", QStringLiteral("--shifts"), QStringLiteral("a,b"));
    row("unknown motion", QStringLiteral("--motion"), QStringLiteral("wild"));
    row("seed that is no number", QStringLiteral("--seed"), QStringLiteral("x"));
    row("negative threads", QStringLiteral("--threads"), QStringLiteral("-1"));
    row("unknown format", QStringLiteral("--format"), QStringLiteral("gif"));
}

void TestSampleBracketProgram::badOption_saysWhichAndWritesNothing()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, named);
    const QTemporaryDir folder;
    const Outcome outcome = run(arguments + QStringList{folder.path()});
    QCOMPARE(outcome.exitCode, 64);
    QVERIFY2(outcome.errors.contains(named), outcome.errors.constData());
    QVERIFY(QDir(folder.path()).isEmpty());
}

void TestSampleBracketProgram::folderIsAFile_failsWithAMessage()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("taken"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    const Outcome outcome = run(kSmall + QStringList{path});
    QCOMPARE(outcome.exitCode, 74);
    QVERIFY(outcome.errors.contains(path.toLocal8Bit()));
}

QTEST_GUILESS_MAIN(TestSampleBracketProgram)
#include "tst_sample_bracket_program.moc"
