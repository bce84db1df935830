#include "parallel_rows.h"

#include <QtTest>

#include <atomic>
#include <new>
#include <vector>

class TestParallelRows : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { parallel::setThreadLimit(0); }

    void each_anyThreadCount_callsEveryNumberOnceAndCountsThem_data()
    {
        QTest::addColumn<int>("threads");
        QTest::addColumn<int>("count");
        for (const int threads : {1, 2, 7}) {
            for (const int count : {0, 1, 2, 13})
                QTest::addRow("%d threads, %d", threads, count) << threads << count;
        }
    }

    void each_anyThreadCount_callsEveryNumberOnceAndCountsThem()
    {
        QFETCH(int, threads);
        QFETCH(int, count);
        parallel::setThreadLimit(threads);
        std::vector<std::atomic<int>> calls(static_cast<size_t>(count));
        std::vector<int> told; // without a lock: the calls must not overlap
        parallel::each(
            count, [&](int i) { ++calls[static_cast<size_t>(i)]; },
            [&](int done) { told.push_back(done); });
        for (const std::atomic<int> &number : calls)
            QCOMPARE(number.load(), 1);
        QCOMPARE(int(told.size()), count);
        for (int i = 0; i < count; ++i)
            QCOMPARE(told[static_cast<size_t>(i)], i + 1);
    }

    void each_workThrows_callerGetsItAfterTheOthers()
    {
        parallel::setThreadLimit(3);
        std::atomic<int> calls{0};
        QVERIFY_EXCEPTION_THROWN(parallel::each(2,
                                                [&](int i) {
                                                    ++calls;
                                                    if (i == 0)
                                                        throw std::bad_alloc();
                                                }),
                                 std::bad_alloc);
        QCOMPARE(calls.load(), 2);
    }
};

QTEST_GUILESS_MAIN(TestParallelRows)
#include "tst_parallel_rows.moc"
