#include "BatchLog.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <thread>

class TestBatchLog : public QObject
{
    Q_OBJECT

private slots:
    void lines_areReadBack_theLastOfEachCounts()
    {
        const QTemporaryDir folder;
        const BatchLog log(folder.filePath("log.jsonl"));
        QVERIFY(log.read().isEmpty());
        QVERIFY(log.append({{"output", "out/a.jpg"}, {"status", "failed"}}));
        QVERIFY(log.append({{"output", "out/b.jpg"}, {"status", "merged"}}));
        QVERIFY(log.append({{"output", "elsewhere/a.jpg"}, {"status", "merged"}}));
        const auto records = BatchLog(folder.filePath("log.jsonl")).read();
        QCOMPARE(records.size(), 2);
        QCOMPARE(records["a.jpg"]["status"].toString(), QString("merged"));
    }

    void lineThatWasCutOff_harmsNoOther()
    {
        const QTemporaryDir folder;
        const BatchLog log(folder.filePath("log.jsonl"));
        QVERIFY(log.append({{"output", "a.jpg"}}));
        QFile file(folder.filePath("log.jsonl"));
        QVERIFY(file.open(QIODevice::Append));
        file.write("{\"output\":\"b.j");
        file.close();
        QVERIFY(log.append({{"output", "c.jpg"}}));
        const auto records = log.read();
        QVERIFY(records.contains("a.jpg") && records.contains("c.jpg"));
        QCOMPARE(records.size(), 2);
    }

    void severalWriters_mixNoLines()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("log.jsonl");
        const auto write = [&path](int writer) {
            for (int i = 0; i < 50; ++i)
                BatchLog(path).append({{"output", QStringLiteral("%1-%2.jpg").arg(writer).arg(i)},
                                       {"filler", QString(5000, 'x')}});
        };
        std::thread one(write, 1);
        std::thread other(write, 2);
        one.join();
        other.join();
        QCOMPARE(BatchLog(path).read().size(), 100);
    }

    void folderThatIsMissing_isTold()
    {
        QVERIFY(!BatchLog("/nowhere/log.jsonl").append({{"output", "a"}}));
    }
};

QTEST_GUILESS_MAIN(TestBatchLog)
#include "tst_BatchLog.moc"
