#include "merge_texts.h"

#include <QtTest>

class TestMergeTexts : public QObject
{
    Q_OBJECT

private slots:
    void stops_areRoundedToThirdsAndSigned_data();
    void stops_areRoundedToThirdsAndSigned();
    void exposureTime_isAFractionOrSeconds_data();
    void exposureTime_isAFractionOrSeconds();
    void unaligned_namesTheShotAndTheReason();
    void problem_everyError_isSaidInWords();
};

void TestMergeTexts::stops_areRoundedToThirdsAndSigned_data()
{
    QTest::addColumn<double>("stops");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0.0 << "0.0 EV";
    QTest::newRow("nearly none") << -0.04 << "0.0 EV";
    QTest::newRow("brighter") << 2.02 << "+2.0 EV";
    QTest::newRow("a third") << 0.32 << "+0.3 EV";
    QTest::newRow("darker") << -3.97 << "−4.0 EV";
}

void TestMergeTexts::stops_areRoundedToThirdsAndSigned()
{
    QFETCH(double, stops);
    QFETCH(QString, text);
    QCOMPARE(merge_texts::stops(stops), text);
}

void TestMergeTexts::exposureTime_isAFractionOrSeconds_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("not known") << 0.0 << "";
    QTest::newRow("short") << 1.0 / 125 << "1/125 s";
    QTest::newRow("half a second") << 0.5 << "0.5 s";
    QTest::newRow("long") << 8.0 << "8 s";
}

void TestMergeTexts::exposureTime_isAFractionOrSeconds()
{
    QFETCH(double, seconds);
    QFETCH(QString, text);
    QCOMPARE(merge_texts::exposureTime(seconds), text);
}

void TestMergeTexts::unaligned_namesTheShotAndTheReason()
{
    registration::Transform transform;
    transform.kind = registration::Kind::Unaligned;
    transform.reason = registration::Reason::NoDetail;
    QCOMPARE(merge_texts::unaligned(QStringLiteral("/a/IMG_3.jpg"), transform),
             QStringLiteral("IMG_3.jpg was left unaligned: it shows too little detail."));
    transform.kind = registration::Kind::Rigid;
    transform.confidence = 0.934;
    QCOMPARE(merge_texts::unaligned(QStringLiteral("/a/IMG_3.jpg"), transform), QString());
    QCOMPARE(merge_texts::alignment(transform), QStringLiteral("aligned, 93 % sure"));
}

void TestMergeTexts::problem_everyError_isSaidInWords()
{
    using exposure::Error;
    for (const Error error :
         {Error::NoMemory, Error::NoPictures, Error::DifferentSizes, Error::NothingCovered})
        QVERIFY(!merge_texts::problem(error).isEmpty());
    for (const Error error : {Error::None, Error::Cancelled})
        QVERIFY(merge_texts::problem(error).isEmpty());
}

QTEST_GUILESS_MAIN(TestMergeTexts)
#include "tst_merge_texts.moc"
