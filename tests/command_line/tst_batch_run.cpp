#include "PhotoFolder.h"
#include "ProgramRun.h"
#include "Terminal.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <csignal>

namespace {

constexpr int kTimeLimitMs = 120000;
constexpr qint64 kMegabyte = 1 << 20;

void writeBracket(const PhotoFolder &photos, const QString &name, double second,
                  QSize size = {40, 30}, int shots = 3)
{
    for (int i = 0; i < shots; ++i)
        photos.writeShot(QStringLiteral("in/%1_%2.jpg").arg(name).arg(i), 2 * i - 2,
                         second + i / 4.0, size);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList picturesIn(const QString &folder)
{
    return QDir(folder).entryList({"*.jpg"}, QDir::Files, QDir::Name);
}

/// "VmRSS" or another line of a process, in bytes; 0 when it is gone.
qint64 memoryOf(qint64 process, const QByteArray &line)
{
    const QByteArray status = contentOf(QStringLiteral("/proc/%1/status").arg(process));
    const qsizetype at = status.indexOf(line + ':');
    return at < 0 ? 0
                  : status.mid(at + line.size() + 1).trimmed().split(' ')[0].toLongLong() * 1024;
}

QList<qint64> childrenOf(qint64 process)
{
    QList<qint64> children;
    for (const QByteArray &number :
         contentOf(QStringLiteral("/proc/%1/task/%1/children").arg(process))
             .simplified()
             .split(' ')) {
        if (!number.isEmpty())
            children += number.toLongLong();
    }
    return children;
}

/// The most that a program and its children had at a time, and how many of them there were.
struct Usage
{
    qint64 mostBytes = 0;
    qsizetype mostChildren = 0;
};

/// Looks again and again until it has ended.
Usage watchMemoryOf(Program &program)
{
    Usage usage;
    while (!program.waitForFinished(2) && program.state() != QProcess::NotRunning) {
        const QList<qint64> children = childrenOf(program.processId());
        qint64 bytes = memoryOf(program.processId(), "VmHWM");
        for (const qint64 child : children)
            bytes += memoryOf(child, "VmHWM");
        usage.mostBytes = std::max(usage.mostBytes, bytes);
        usage.mostChildren = std::max(usage.mostChildren, children.size());
    }
    return usage;
}

void start(Program &program, const PhotoFolder &photos, const QStringList &words)
{
    program.setWorkingDirectory(photos.path());
    program.setArguments(QStringList({"batch", "in", "-o", "out"}) + words);
    program.start(QIODevice::ReadOnly);
}

/// The next line that tells of a merge; empty when none came.
QJsonObject nextMerge(Program &program)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < kTimeLimitMs) {
        if (!program.canReadLine() && !program.waitForReadyRead(kTimeLimitMs))
            return {};
        const QJsonObject line = QJsonDocument::fromJson(program.readLine()).object();
        if (line["status"] == "merged")
            return line;
    }
    return {};
}

} // namespace

/// Batches as they run: side by side within their memory, watched, shown and stopped.
class TestBatchRun : public QObject
{
    Q_OBJECT

private slots:
    void memoryBound_isKeptWithSeveralAtATime();
    void bracketLargerThanTheBound_isMergedAloneWithAWarning();
    void report_tellsWhatWasDone();
    void contactSheet_showsAllBracketsAfterAResume();
    void shards_contactSheetShowsTheWorkOfAll();
    void progress_onATerminal_rewritesOneLine();
    void progress_inAPipe_isSilent();
    void dryRun_tellsShotsAndMemory();
    void watch_mergesWhatComesUntilItIsStopped();
    void watch_waitsForAFileThatGrows();
    void mergeThatCrashes_isOneFailureAmongOthers();
};

void TestBatchRun::memoryBound_isKeptWithSeveralAtATime()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("sanitizers take memory of their own");
#endif
    constexpr qint64 kBound = 400;
    const PhotoFolder photos;
    for (int i = 0; i < 6; ++i)
        writeBracket(photos, QStringLiteral("b%1").arg(i), 100 * i, {2000, 1500});
    Program program;
    start(program, photos,
          {"--json", "--jobs", "8", "--memory", QStringLiteral("%1M").arg(kBound)});
    const Usage usage = watchMemoryOf(program);
    QCOMPARE(program.exitCode(), 0);
    qInfo("at most %lld MB with %lld merges at a time", usage.mostBytes / kMegabyte,
          qint64(usage.mostChildren));
    QVERIFY(usage.mostBytes <= kBound * kMegabyte);
    QCOMPARE(usage.mostChildren, 2);
}

void TestBatchRun::bracketLargerThanTheBound_isMergedAloneWithAWarning()
{
    const PhotoFolder photos;
    for (int i = 0; i < 3; ++i)
        writeBracket(photos, QStringLiteral("b%1").arg(i), 100 * i, {400, 300});
    Program program;
    start(program, photos, {"--memory", "10M"});
    QCOMPARE(watchMemoryOf(program).mostChildren, 1);
    QCOMPARE(program.exitCode(), 0);
    QVERIFY(program.readAllStandardError().contains("more than the 10 MB allowed"));
    QCOMPARE(picturesIn(photos.path("out")).size(), 3);
}

void TestBatchRun::report_tellsWhatWasDone()
{
    const PhotoFolder photos;
    writeBracket(photos, "a", 0);
    QCOMPARE(runProgramIn(photos.path(), {"batch", "in", "-o", "out"}).exitCode, 0);
    const QByteArray report = contentOf(photos.path("out/veskhdr-batch.jsonl"));
    QCOMPARE(report.count('\n'), 1);
    const QJsonObject line = QJsonDocument::fromJson(report).object();
    QCOMPARE(line["status"].toString(), QString("merged"));
    QCOMPARE(line["pictures"].toArray().size(), 3);
    QCOMPARE(line["confidence"].toArray().size(), 3);
    QCOMPARE(line["stamps"].toArray().size(), 3);
    QVERIFY(line["steps"].toObject().contains("decode"));
    QVERIFY(line["peakMemory"].toInteger() > kMegabyte);
    QVERIFY(QDateTime::fromString(line["at"].toString(), Qt::ISODate).isValid());
}

void TestBatchRun::contactSheet_showsAllBracketsAfterAResume()
{
    const PhotoFolder photos;
    writeBracket(photos, "a", 0);
    QCOMPARE(runProgramIn(photos.path(), {"batch", "in", "-o", "out"}).exitCode, 0);
    writeBracket(photos, "b", 100);
    photos.writeShot("in/single.jpg", 0, 300);
    QCOMPARE(runProgramIn(photos.path(), {"batch", "in", "-o", "out", "--html"}).exitCode, 0);
    const QByteArray page = contentOf(photos.path("out/veskhdr-batch.html"));
    QVERIFY(page.contains("2 brackets of 6 shots: 2 merged"));
    QCOMPARE(page.count("<article>"), 2);
    QCOMPARE(page.count("data:image/jpeg;base64,"), 8);
    QVERIFY(page.contains("(decode ")); // of the first run, too
    QCOMPARE(page.count("(decode "), 2);
    QVERIFY(page.contains("single.jpg"));
}

void TestBatchRun::shards_contactSheetShowsTheWorkOfAll()
{
    const PhotoFolder photos;
    for (int i = 0; i < 6; ++i)
        writeBracket(photos, QStringLiteral("b%1").arg(i), 100 * i);
    for (const char *shard : {"1/2", "2/2"})
        QCOMPARE(
            runProgramIn(photos.path(), {"batch", "in", "-o", "out", "--html", "--shard", shard})
                .exitCode,
            0);
    const QByteArray page = contentOf(photos.path("out/veskhdr-batch.html"));
    QVERIFY(page.contains("6 brackets of 18 shots: 6 merged"));
}

void TestBatchRun::progress_onATerminal_rewritesOneLine()
{
    const PhotoFolder photos;
    for (int i = 0; i < 3; ++i)
        writeBracket(photos, QStringLiteral("b%1").arg(i), 100 * i);
    const Terminal errors;
    qputenv("TERM", "xterm");
    Program program;
    program.errorTerminal = errors.end;
    start(program, photos, {"--jobs", "1", "--", "--no-align"});
    QVERIFY(program.waitForFinished(kTimeLimitMs));
    const QByteArray shown = errors.shown();
    QVERIFY2(shown.contains("\r[") && shown.contains("] 1 of 3, about "), shown);
    QVERIFY2(shown.contains(" left") && !shown.contains('\n'), shown);
    QVERIFY(shown.endsWith("\r\x1b[K")); // taken away at the end
}

void TestBatchRun::progress_inAPipe_isSilent()
{
    const PhotoFolder photos;
    writeBracket(photos, "a", 0);
    const ProgramRun run =
        runProgramIn(photos.path(), {"batch", "in", "-o", "out", "--", "--no-align"});
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.output, QByteArray("out/2026-06-21T120000_a_0_merged.jpg: merged\n"));
}

void TestBatchRun::dryRun_tellsShotsAndMemory()
{
    const PhotoFolder photos;
    writeBracket(photos, "a", 0, {2000, 1500});
    const ProgramRun run =
        runProgramIn(photos.path(), {"batch", "in", "-o", "out", "--dry-run", "--memory", "1G"});
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.output.contains("a_0_merged.jpg: planned, 3 shots, about "), run.output);
    QVERIFY2(run.output.contains("1 to merge, as many at a time as fit into 1.0 GB"), run.output);
    QVERIFY(!QDir(photos.path("out")).exists());
}

void TestBatchRun::watch_mergesWhatComesUntilItIsStopped()
{
    const PhotoFolder photos;
    writeBracket(photos, "a", 0);
    Program program;
    start(program, photos, {"--watch", "--rest", "1", "--json", "--html"});
    QVERIFY(nextMerge(program)["output"].toString().contains("a_0_merged"));
    writeBracket(photos, "b", 100);
    const QJsonObject came = nextMerge(program);
    QVERIFY(came["output"].toString().contains("b_0_merged"));
    QCOMPARE(came["pictures"].toArray().size(), 3);
    photos.writeShot("in/b_3.jpg", 4, 100.75, {40, 30}); // one more of the same bracket
    QCOMPARE(nextMerge(program)["pictures"].toArray().size(), 4);
    ::kill(pid_t(program.processId()), SIGINT);
    QVERIFY(program.waitForFinished(kTimeLimitMs));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(picturesIn(photos.path("out")).size(), 2);
    QVERIFY(contentOf(photos.path("out/veskhdr-batch.html")).contains("2 brackets of 7 shots"));
    QCOMPARE(QDir(photos.path("out")).entryList({".*"}, QDir::Files | QDir::Hidden), QStringList());
}

void TestBatchRun::watch_waitsForAFileThatGrows()
{
    const PhotoFolder photos;
    QVERIFY(QDir().mkpath(photos.path("in")));
    Program program;
    start(program, photos, {"--watch", "--rest", "1", "--json"});
    writeBracket(photos, "a", 0);
    const QByteArray whole = contentOf(photos.path("in/a_2.jpg"));
    constexpr int kParts = 12;
    for (int i = 1; i <= kParts; ++i) {
        photos.write("in/a_2.jpg", whole.left(whole.size() * i / kParts));
        program.waitForReadyRead(300);
        QVERIFY2(i == kParts || picturesIn(photos.path("out")).isEmpty(), "merged too early");
    }
    const QJsonObject merge = nextMerge(program);
    QCOMPARE(merge["pictures"].toArray().size(), 3);
    QCOMPARE(merge["exitCode"].toInt(), 0);
    ::kill(pid_t(program.processId()), SIGINT);
    QVERIFY(program.waitForFinished(kTimeLimitMs));
    QCOMPARE(contentOf(photos.path("out/veskhdr-batch.jsonl")).count('\n'), 1);
}

void TestBatchRun::mergeThatCrashes_isOneFailureAmongOthers()
{
    const PhotoFolder photos;
    for (int i = 0; i < 4; ++i)
        writeBracket(photos, QStringLiteral("b%1").arg(i), 100 * i, {1200, 900});
    Program program;
    start(program, photos, {"--json", "--jobs", "1"});
    qint64 victim = 0;
    while (victim == 0 && !program.waitForFinished(1))
        victim = childrenOf(program.processId()).value(0, 0);
    QVERIFY(victim > 0);
    ::kill(pid_t(victim), SIGKILL);
    QVERIFY(program.waitForFinished(kTimeLimitMs));
    QCOMPARE(program.exitCode(), 71);
    QCOMPARE(picturesIn(photos.path("out")).size(), 3);
    QVERIFY(program.readAllStandardError().contains("its merge was ended by signal 9"));
    QCOMPARE(runProgramIn(photos.path(), {"batch", "in", "-o", "out"}).exitCode, 0);
    QCOMPARE(picturesIn(photos.path("out")).size(), 4);
}

QTEST_GUILESS_MAIN(TestBatchRun)
#include "tst_batch_run.moc"
