#include "MergeProcess.h"

#include <QSignalSpy>
#include <QtTest>

class TestMergeProcess : public QObject
{
    Q_OBJECT

private slots:
    void progress_isToldAndIsNoError();
    void lineWithoutAnEnd_isAnError();
    void program_isAskedForLinesOnce();
    void missingProgram_ends();

private:
    static MergeProcess::End run(MergeProcess &process);
};

MergeProcess::End TestMergeProcess::run(MergeProcess &process)
{
    MergeProcess::End how;
    bool isOver = false;
    connect(&process, &MergeProcess::ended, &process, [&](const MergeProcess::End &end) {
        how = end;
        isOver = true;
    });
    process.start();
    [&] { QTRY_VERIFY(isOver); }();
    return how;
}

void TestMergeProcess::progress_isToldAndIsNoError()
{
    MergeProcess process(QStringLiteral("/bin/sh"),
                         {"-c", "echo progress 0.25 >&2; echo bad >&2; echo progress 1 >&2; "
                                "echo good; echo progress of mine >&1"},
                         1);
    const QSignalSpy told(&process, &MergeProcess::progressed);
    const MergeProcess::End end = run(process);
    QCOMPARE(end.exitCode, 0);
    QCOMPARE(end.errors, QByteArray("bad\n"));
    QCOMPARE(end.output, QByteArray("good\nprogress of mine\n"));
    QCOMPARE(told.size(), 2);
    QCOMPARE(told.at(0).at(0).toDouble(), 0.25);
    QCOMPARE(told.at(1).at(0).toDouble(), 1.0);
}

void TestMergeProcess::lineWithoutAnEnd_isAnError()
{
    MergeProcess process(QStringLiteral("/bin/sh"), {"-c", "printf 'one\\ntwo' >&2; exit 3"}, 1);
    const MergeProcess::End end = run(process);
    QCOMPARE(end.exitCode, 3);
    QCOMPARE(end.errors, QByteArray("one\ntwo"));
}

void TestMergeProcess::program_isAskedForLinesOnce()
{
    qputenv("VESKHDR_PROGRESS", "no");
    MergeProcess process(QStringLiteral("/usr/bin/env"), {}, 2);
    const QList<QByteArray> variables = run(process).output.split('\n');
    qunsetenv("VESKHDR_PROGRESS");
    QCOMPARE(variables.count("VESKHDR_PROGRESS=lines"), 1);
    QCOMPARE(variables.count("VESKHDR_PROGRESS=no"), 0);
    QCOMPARE(variables.count("VESKHDR_THREADS=2"), 1);
}

void TestMergeProcess::missingProgram_ends()
{
    MergeProcess process(QStringLiteral("/no/such/program"), {}, 1);
    QVERIFY(run(process).exitCode != 0);
}

QTEST_GUILESS_MAIN(TestMergeProcess)
#include "tst_MergeProcess.moc"
