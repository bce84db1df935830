#include "exposure_texts.h"

#include <QtTest>

class TestExposureTexts : public QObject
{
    Q_OBJECT

private slots:
    void stops_areRoundedToThirdsAndSigned_data();
    void stops_areRoundedToThirdsAndSigned();
    void time_isAFractionOrSeconds_data();
    void time_isAFractionOrSeconds();
    void settings_areWhatIsKnown();
};

void TestExposureTexts::stops_areRoundedToThirdsAndSigned_data()
{
    QTest::addColumn<double>("stops");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0.0 << "0.0 EV";
    QTest::newRow("nearly none") << -0.04 << "0.0 EV";
    QTest::newRow("brighter") << 2.02 << "+2.0 EV";
    QTest::newRow("a third") << 0.32 << "+0.3 EV";
    QTest::newRow("darker") << -3.97 << "−4.0 EV";
}

void TestExposureTexts::stops_areRoundedToThirdsAndSigned()
{
    QFETCH(double, stops);
    QFETCH(QString, text);
    QCOMPARE(exposure_texts::stops(stops), text);
}

void TestExposureTexts::time_isAFractionOrSeconds_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("not known") << 0.0 << "";
    QTest::newRow("short") << 1.0 / 125 << "1/125 s";
    QTest::newRow("half a second") << 0.5 << "0.5 s";
    QTest::newRow("long") << 8.0 << "8 s";
}

void TestExposureTexts::time_isAFractionOrSeconds()
{
    QFETCH(double, seconds);
    QFETCH(QString, text);
    QCOMPARE(exposure_texts::time(seconds), text);
}

void TestExposureTexts::settings_areWhatIsKnown()
{
    Shot shot;
    QCOMPARE(exposure_texts::settings(shot), QString());
    shot.iso = 200;
    shot.exposureSeconds = 1.0 / 30;
    QCOMPARE(exposure_texts::settings(shot), QStringLiteral("1/30 s  ISO 200"));
    shot.fNumber = 5.6;
    QCOMPARE(exposure_texts::settings(shot), QStringLiteral("1/30 s  f/5.6  ISO 200"));
}

QTEST_GUILESS_MAIN(TestExposureTexts)
#include "tst_exposure_texts.moc"
