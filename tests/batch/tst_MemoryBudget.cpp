#include "MemoryBudget.h"

#include <QtTest>

class TestMemoryBudget : public QObject
{
    Q_OBJECT

private slots:
    void whatFits_isGiven()
    {
        MemoryBudget budget(100);
        QVERIFY(budget.take(60));
        QVERIFY(budget.take(40));
        QVERIFY(!budget.take(1));
    }

    void whatIsGivenBack_isThereAgain()
    {
        MemoryBudget budget(100);
        QVERIFY(budget.take(60));
        QVERIFY(budget.take(30));
        QVERIFY(!budget.take(50));
        budget.giveBack(60);
        QVERIFY(budget.take(50));
    }

    void moreThanAll_runsAlone()
    {
        MemoryBudget budget(100);
        QVERIFY(budget.take(500));
        QVERIFY(!budget.take(1));
        budget.giveBack(500);
        QVERIFY(budget.take(1));
        QVERIFY(!budget.take(500));
    }

    void estimateThatWasTooLow_raisesTheNext()
    {
        MemoryBudget budget(100);
        QCOMPARE(budget.corrected(40), 40);
        budget.learn(20, 30);
        QCOMPARE(budget.corrected(40), 60);
        budget.learn(20, 10); // one that was too high lowers none
        QCOMPARE(budget.corrected(40), 60);
    }
};

QTEST_GUILESS_MAIN(TestMemoryBudget)
#include "tst_MemoryBudget.moc"
