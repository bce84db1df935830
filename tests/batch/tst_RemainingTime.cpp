#include "RemainingTime.h"

#include <QtTest>

class TestRemainingTime : public QObject
{
    Q_OBJECT

private slots:
    void nothingDone_tellsNothing()
    {
        RemainingTime remaining;
        remaining.expect(10);
        QVERIFY(!remaining.milliseconds(5000));
    }

    void partDone_tellsTheRestInProportion()
    {
        RemainingTime remaining;
        remaining.expect(10);
        remaining.add(4);
        QCOMPARE(remaining.milliseconds(8000), std::optional<qint64>(12000));
    }

    void workThatNeedsNothing_doesNotSpeedUpTheRest()
    {
        RemainingTime remaining;
        remaining.expect(10);
        remaining.drop(5);
        remaining.add(1);
        QCOMPARE(remaining.milliseconds(2000), std::optional<qint64>(8000));
    }

    void texts_areForPeople()
    {
        QCOMPARE(RemainingTime::text(900), QString("1 s"));
        QCOMPARE(RemainingTime::text(89000), QString("89 s"));
        QCOMPARE(RemainingTime::text(90000), QString("2 min"));
        QCOMPARE(RemainingTime::text(7500000), QString("2 h 5 min"));
    }
};

QTEST_GUILESS_MAIN(TestRemainingTime)
#include "tst_RemainingTime.moc"
