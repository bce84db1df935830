#include "PhotoFolder.h"
#include "ProgramRun.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QtTest>

#include <csignal>

#include <sys/stat.h>

namespace {

constexpr int kTimeLimitMs = 240000;

void writeBrackets(const PhotoFolder &photos, int count)
{
    for (int i = 0; i < count; ++i) {
        for (int k = 0; k < 3; ++k)
            photos.writeShot(QStringLiteral("in/b%1_%2.jpg").arg(i, 3, 10, QLatin1Char('0')).arg(k),
                             2 * k - 2, 100 * i + k / 4.0, {40, 30});
    }
}

QStringList batchWords(const QStringList &more = {})
{
    return QStringList({"batch", "in", "-o", "out", "--json"}) + more;
}

QStringList resultsIn(const PhotoFolder &photos)
{
    return QDir(photos.path("out")).entryList({"*.jpg"}, QDir::Files, QDir::Name);
}

/// What no run may leave behind.
QStringList hiddenIn(const PhotoFolder &photos)
{
    return QDir(photos.path("out")).entryList({".*"}, QDir::Files | QDir::Hidden);
}

/// How often each result was made, as the report tells.
QMap<QString, int> madeIn(const PhotoFolder &photos)
{
    QMap<QString, int> made;
    QFile report(photos.path("out/veskhdr-batch.jsonl"));
    if (!report.open(QIODevice::ReadOnly))
        return made;
    while (!report.atEnd()) {
        const QJsonObject line = QJsonDocument::fromJson(report.readLine()).object();
        if (line["status"] == "merged")
            ++made[line["output"].toString()];
    }
    return made;
}

int countOf(const ProgramRun &run, const QByteArray &status)
{
    return int(run.output.count("\"status\":\"" + status + '"'));
}

/// Each result's own number on the disk, which changes when it is made anew.
QHash<QString, ino_t> nodesIn(const PhotoFolder &photos)
{
    QHash<QString, ino_t> nodes;
    for (const QString &name : resultsIn(photos)) {
        struct stat info = {};
        if (::stat(QFile::encodeName(photos.path("out/" + name)).constData(), &info) == 0)
            nodes.insert(name, info.st_ino);
    }
    return nodes;
}

bool keepsAll(const QHash<QString, ino_t> &before, const QHash<QString, ino_t> &now)
{
    return std::all_of(before.keyBegin(), before.keyEnd(),
                       [&](const QString &name) { return now.value(name) == before.value(name); });
}

/// The program's merges.
QList<pid_t> childrenOf(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/task/%1/children").arg(process));
    QList<pid_t> children;
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray &number : file.readAll().simplified().split(' ')) {
            if (!number.isEmpty())
                children += number.toInt();
        }
    }
    return children;
}

/// As a machine that loses power, or a scheduler that loses patience.
void killAll(Program &program, bool withMerges)
{
    const QList<pid_t> children = withMerges ? childrenOf(program.processId()) : QList<pid_t>();
    program.kill();
    for (const pid_t child : children)
        ::kill(child, SIGKILL);
    program.waitForFinished();
}

void start(Program &program, const PhotoFolder &photos, const QStringList &words)
{
    program.setWorkingDirectory(photos.path());
    program.setArguments(words);
    program.start(QIODevice::ReadOnly);
}

/// Waits until so many merges are told; false when it ends before.
bool waitForMerges(Program &program, int count)
{
    QByteArray told;
    while (count > 0) {
        if (!program.waitForReadyRead(kTimeLimitMs))
            return false;
        told = program.readAllStandardOutput();
        count -= int(told.count("\"merged\""));
    }
    return true;
}

} // namespace

/// Batches that end before they are done, and such that share their work, with real processes.
class TestBatchResume : public QObject
{
    Q_OBJECT

private slots:
    void killedAtRandomMoments_everyResultIsWholeAndMadeOnce();
    void sameShardTwice_eachResultIsMadeOnce();
    void shardThatDies_isMadeUpForByTheOther();
    void stoppedByTerminate_leavesNothingHalfDone();
    void replacedByOlderPicture_isMergedAnew();
    void tornLineInReport_isPassedOver();
};

void TestBatchResume::killedAtRandomMoments_everyResultIsWholeAndMadeOnce()
{
    constexpr int kBrackets = 500;
    constexpr int kKills = 20;
    constexpr quint32 kSeed = 20260621;
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    const PhotoFolder photos;
    writeBrackets(photos, kBrackets);
    QHash<QString, ino_t> before;
    for (int i = 0; i < kKills; ++i) {
        Program program;
        start(program, photos, batchWords());
        QVERIFY2(waitForMerges(program, random.bounded(24)), qPrintable(QString::number(i)));
        program.waitForFinished(random.bounded(1, 60)); // somewhere within a merge
        QVERIFY2(program.state() == QProcess::Running, "it was done before it was killed");
        killAll(program, random.bounded(2) == 1);
        const QHash<QString, ino_t> now = nodesIn(photos);
        QVERIFY2(keepsAll(before, now), "a result was made twice");
        before = now;
    }
    qInfo("%d results after %d kills", int(before.size()), kKills);
    const ProgramRun last = runProgramIn(photos.path(), batchWords());
    QCOMPARE(last.exitCode, 0);
    QCOMPARE(countOf(last, "failed"), 0);
    QVERIFY(keepsAll(before, nodesIn(photos)));
    QCOMPARE(resultsIn(photos).size(), kBrackets);
    for (const QString &name : resultsIn(photos))
        QVERIFY2(QImage(photos.path("out/" + name)).size() == QSize(40, 30), qPrintable(name));
    const QMap<QString, int> made = madeIn(photos);
    QVERIFY(std::all_of(made.begin(), made.end(), [](int times) { return times == 1; }));
    QCOMPARE(hiddenIn(photos), QStringList());
    QCOMPARE(countOf(runProgramIn(photos.path(), batchWords()), "unchanged"), kBrackets);
}

void TestBatchResume::sameShardTwice_eachResultIsMadeOnce()
{
    constexpr int kBrackets = 24;
    const PhotoFolder photos;
    writeBrackets(photos, kBrackets);
    std::array<Program, 3> programs;
    for (Program &program : programs)
        start(program, photos, batchWords({"--shard", "1/1"}));
    int unchanged = 0;
    int merged = 0;
    for (Program &program : programs) {
        QVERIFY(program.waitForFinished(kTimeLimitMs));
        QCOMPARE(program.exitCode(), 0);
        const ProgramRun run{0, program.readAllStandardOutput(), {}};
        merged += countOf(run, "merged");
        unchanged += countOf(run, "unchanged");
    }
    QCOMPARE(merged, kBrackets);
    QCOMPARE(unchanged, kBrackets * (int(programs.size()) - 1));
    QCOMPARE(madeIn(photos).size(), kBrackets);
    QCOMPARE(hiddenIn(photos), QStringList());
}

void TestBatchResume::shardThatDies_isMadeUpForByTheOther()
{
    constexpr int kBrackets = 16;
    const PhotoFolder photos;
    writeBrackets(photos, kBrackets);
    Program dying;
    Program other;
    start(dying, photos, batchWords());
    start(other, photos, batchWords());
    QVERIFY(waitForMerges(dying, 1));
    killAll(dying, true);
    QVERIFY(other.waitForFinished(kTimeLimitMs));
    QCOMPARE(other.exitCode(), 0);
    QCOMPARE(resultsIn(photos).size(), kBrackets);
    QCOMPARE(countOf(runProgramIn(photos.path(), batchWords()), "unchanged"), kBrackets);
    QCOMPARE(hiddenIn(photos), QStringList());
}

void TestBatchResume::stoppedByTerminate_leavesNothingHalfDone()
{
    const PhotoFolder photos;
    writeBrackets(photos, 40);
    Program program;
    start(program, photos, batchWords());
    QVERIFY(waitForMerges(program, 3));
    program.terminate();
    QVERIFY(program.waitForFinished(kTimeLimitMs));
    QCOMPARE(program.exitStatus(), QProcess::CrashExit); // by the signal, as scripts expect
    QCOMPARE(program.exitCode(), SIGTERM);
    const auto results = resultsIn(photos).size();
    QVERIFY2(results >= 3 && results < 40, qPrintable(QString::number(results)));
    QCOMPARE(hiddenIn(photos), QStringList());
    QCOMPARE(qsizetype(madeIn(photos).size()), results);
}

/// A picture that is copied over another with its own, older time.
void TestBatchResume::replacedByOlderPicture_isMergedAnew()
{
    const PhotoFolder photos;
    writeBrackets(photos, 2);
    QCOMPARE(runProgramIn(photos.path(), batchWords()).exitCode, 0);
    photos.writeShot("in/b001_1.jpg", 0, 100.25, {40, 30});
    QFile shot(photos.path("in/b001_1.jpg"));
    QVERIFY(shot.open(QIODevice::ReadWrite));
    QVERIFY(shot.setFileTime(PhotoFolder::noon().addYears(-1), QFileDevice::FileModificationTime));
    shot.close();
    const ProgramRun run = runProgramIn(photos.path(), batchWords());
    QCOMPARE(countOf(run, "merged"), 1);
    QCOMPARE(countOf(run, "unchanged"), 1);
    QCOMPARE(countOf(runProgramIn(photos.path(), batchWords()), "unchanged"), 2);
}

void TestBatchResume::tornLineInReport_isPassedOver()
{
    const PhotoFolder photos;
    writeBrackets(photos, 1);
    photos.write("out/veskhdr-batch.jsonl", "{\"output\":\"out/x.jpg\",\"sta");
    QCOMPARE(runProgramIn(photos.path(), batchWords()).exitCode, 0);
    QCOMPARE(madeIn(photos).size(), 1);
}

QTEST_GUILESS_MAIN(TestBatchResume)
#include "tst_batch_resume.moc"
