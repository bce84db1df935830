#include "PhotoFolder.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QtTest>

namespace {

constexpr int kTimeLimitMs = 120000;

struct Run
{
    int exitCode = -1; ///< -1 when a signal ended it or it did not end in time
    QByteArray output; ///< standard output and standard error
};

QString batchPage()
{
    QFile page(QStringLiteral(DOCS_FOLDER "/batch.md"));
    return page.open(QIODevice::ReadOnly) ? QString::fromUtf8(page.readAll()) : QString();
}

/// The commands that the page shows behind a heading.
QString recipe(const QString &heading)
{
    const QRegularExpression block("\n## " + QRegularExpression::escape(heading) +
                                       "\n.*?\n```\n(.*?\n)```\n",
                                   QRegularExpression::DotMatchesEverythingOption);
    return block.match(batchPage()).captured(1);
}

bool isInstalled(const char *program)
{
    return !QStandardPaths::findExecutable(QLatin1String(program)).isEmpty();
}

} // namespace

/// Runs the recipes as docs/batch.md shows them, in a folder with photographs in "photos".
class TestBatch : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void xargs_mergesEveryBracket();
    void parallel_mergesEveryBracket();
    void realParallel_mergesEveryBracket();
    void realParallel_onSeveralMachines_mergesEveryBracket();
    void slurm_tasks_shareTheBrackets();
    void slurm_withoutWords_explainsItself();
    void secondRun_mergesOnlyWhatIsMissing();
    void bracketThatFails_endsWithAnError();
    void noBracket_isRefused();
    void options_reachTheMerge();

private:
    Run bash(const QString &commands, const QStringList &variables = {}) const;
    void standIn(const QString &name, const QByteArray &script) const;
    QStringList merged() const;

    std::unique_ptr<PhotoFolder> folder;
    QStringList allMerged;
};

void TestBatch::init()
{
    if (!isInstalled("jq"))
        QSKIP("jq is not installed");
    folder = std::make_unique<PhotoFolder>();
    allMerged.clear();
    for (int i = 0; i < 5; ++i) {
        // Names as people give them, and the same names again another day.
        const QString prefix = QString("photos/day %1/it's \"#%2\" ").arg(i % 2).arg(i / 2);
        for (int k = 0; k < 3; ++k)
            folder->writeShot(prefix + QString("%1.jpg").arg(k), 2 * k - 2, 60 * i + k);
        allMerged += QString("2026-06-21T120%1_it's \"#%2\" 0_merged.jpg")
                         .arg(QString::number(i) + "00")
                         .arg(i / 2);
    }
}

void TestBatch::cleanup()
{
    folder.reset();
}

Run TestBatch::bash(const QString &commands, const QStringList &variables) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH", qEnvironmentVariable("VESK_BIN_DIR") +
                                   ":" EXAMPLES_FOLDER "/batch:" + qEnvironmentVariable("PATH"));
    for (const QString &variable : variables)
        environment.insert(variable.section('=', 0, 0), variable.section('=', 1));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder->path());
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start("bash", {"-c", commands}, QIODevice::ReadOnly);
    if (!process.waitForFinished(kTimeLimitMs)) {
        process.kill();
        process.waitForFinished();
        return {-1, process.readAll()};
    }
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAll()};
}

QStringList TestBatch::merged() const
{
    return QDir(folder->path("merged")).entryList({"*.jpg"}, QDir::Files, QDir::Name);
}

void TestBatch::xargs_mergesEveryBracket()
{
    const Run run = bash(recipe("With xargs"));
    QVERIFY2(run.exitCode == 0, run.output);
    QCOMPARE(merged(), allMerged);
}

/// A program of that name in front of all others.
void TestBatch::standIn(const QString &name, const QByteArray &script) const
{
    folder->write(name, "#!/usr/bin/env bash\n" + script);
    QFile::setPermissions(folder->path(name), QFile::ReadOwner | QFile::ExeOwner);
}

void TestBatch::parallel_mergesEveryBracket()
{
    // Stands in for GNU Parallel: runs the words for each line, all at the same time.
    standIn("parallel", "[ \"$1 $2 $3 $4\" = '-j 2 --joblog merged.log' ] || exit 64\n"
                        "shift 4\npids=()\n"
                        "while read -r line; do \"${@//\\{\\}/$line}\" & pids+=($!); done\n"
                        "for pid in \"${pids[@]}\"; do wait \"$pid\" || exit; done\n");
    const Run run = bash("PATH=$PWD:$PATH\n" + recipe("With GNU Parallel"));
    QVERIFY2(run.exitCode == 0, run.output);
    QCOMPARE(merged(), allMerged);
}

void TestBatch::realParallel_mergesEveryBracket()
{
    if (!isInstalled("parallel"))
        QSKIP("GNU Parallel is not installed");
    const Run run = bash(recipe("With GNU Parallel"));
    QVERIFY2(run.exitCode == 0, run.output);
    QCOMPARE(merged(), allMerged);
}

void TestBatch::realParallel_onSeveralMachines_mergesEveryBracket()
{
    if (!isInstalled("parallel"))
        QSKIP("GNU Parallel is not installed");
    // Stands in for ssh: notes the machine and runs the command here, through a shell as ssh does.
    // It sets SHELL, as a login does: without it GNU Parallel runs nothing on the other machine.
    standIn("ssh", "while [[ $1 == -* ]]; do shift; done\n"
                   "echo \"$1\" >>'" +
                       folder->path("used").toLocal8Bit() +
                       "'\nshift\n[ \"$1\" != -- ] || shift\n"
                       "SHELL=/bin/bash exec bash -c \"$*\"\n");
    folder->write("machines", "1/one.example\n1/two.example\n");
    const Run run = bash(recipe("Over several machines"), {"PARALLEL_SSH=" + folder->path("ssh")});
    QVERIFY2(run.exitCode == 0, run.output);
    QCOMPARE(merged(), allMerged);
    QFile used(folder->path("used"));
    QVERIFY(used.open(QIODevice::ReadOnly));
    const QByteArray machines = used.readAll();
    QVERIFY2(machines.contains("one.example") && machines.contains("two.example"), machines);
}

void TestBatch::slurm_tasks_shareTheBrackets()
{
    const QString commands = recipe("With Slurm");
    QVERIFY(commands.contains("sbatch --array=1-20 "));
    // Stands in for sbatch: runs the tasks one after the other, here three from number 5 on.
    standIn("sbatch", "shift\n"
                      "for task in 5 6 7; do\n"
                      "  SLURM_ARRAY_TASK_ID=$task SLURM_ARRAY_TASK_MIN=5 "
                      "SLURM_ARRAY_TASK_COUNT=3 bash \"$(command -v \"$1\")\" \"${@:2}\" || exit\n"
                      "  find merged -name '*.jpg' | wc -l >>counts\n"
                      "done\n");
    const Run run = bash("PATH=$PWD:$PATH\n" + commands);
    QVERIFY2(run.exitCode == 0, run.output);
    QCOMPARE(merged(), allMerged);
    QFile counts(folder->path("counts"));
    QVERIFY(counts.open(QIODevice::ReadOnly));
    const QList<QByteArray> after = counts.readAll().simplified().split(' ');
    QCOMPARE(after.size(), 3);
    QVERIFY2(after[0] != "5", "the first task does all");
    QCOMPARE(after[2], QByteArray("5"));
}

void TestBatch::slurm_withoutWords_explainsItself()
{
    const Run run =
        bash("merge-brackets.sbatch",
             {"SLURM_ARRAY_TASK_ID=0", "SLURM_ARRAY_TASK_MIN=0", "SLURM_ARRAY_TASK_COUNT=1"});
    QCOMPARE(run.exitCode, 64);
    QVERIFY2(run.output.startsWith("usage: sbatch"), run.output);
}

void TestBatch::secondRun_mergesOnlyWhatIsMissing()
{
    QCOMPARE(bash(recipe("With xargs")).exitCode, 0);
    QDir results(folder->path("merged"));
    QVERIFY(results.remove(allMerged[1]));
    folder->write("merged/" + allMerged[0], "kept");
    const Run run = bash(recipe("With xargs"));
    QVERIFY2(run.exitCode == 0, run.output);
    QCOMPARE(merged(), allMerged);
    QCOMPARE(QFileInfo(results.filePath(allMerged[0])).size(), qint64(4));
    QVERIFY(QFileInfo(results.filePath(allMerged[1])).size() > 4);
}

void TestBatch::bracketThatFails_endsWithAnError()
{
    const Run run = bash("bracket=$(veskhdr group 'photos/day 0' | head -n 1)\n"
                         "rm photos/day\\ 0/*1.jpg\n"
                         "merge-bracket merged \"$bracket\"");
    QCOMPARE(run.exitCode, 66);
    QVERIFY2(run.output.contains("1.jpg: "), run.output);
    QCOMPARE(merged(), QStringList());
}

void TestBatch::noBracket_isRefused()
{
    const Run run = bash("merge-bracket merged '{\"pictures\": []}'");
    QCOMPARE(run.exitCode, 65);
    QVERIFY(!QFileInfo::exists(folder->path("merged")));
}

void TestBatch::options_reachTheMerge()
{
    const Run run = bash("merge-bracket merged \"$(veskhdr group 'photos/day 1' | head -n 1)\"",
                         {"VESKHDR_OPTIONS=--no-align --verbose"});
    QVERIFY2(run.exitCode == 0, run.output);
    QVERIFY2(run.output.contains("output") && !run.output.contains("shift"), run.output);
}

QTEST_GUILESS_MAIN(TestBatch)
#include "tst_batch.moc"
