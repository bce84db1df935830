#include "bracket_finder.h"

#include <QtTest>

namespace {

const QDateTime kNoon(QDate(2026, 6, 21), QTime(12, 0), Qt::UTC);

/// A shot with an exposure bias, so many seconds after noon.
Shot biased(double bias, double seconds)
{
    Shot shot;
    shot.path = QStringLiteral("/photos/at %1 s with %2.jpg").arg(seconds, 8, 'f', 2).arg(bias);
    shot.model = QStringLiteral("A");
    shot.takenAt = kNoon.addMSecs(qRound64(seconds * 1000));
    shot.size = QSize(6000, 4000);
    shot.exposureBias = bias;
    return shot;
}

/// A shot with manual exposure at aperture 8 and sensitivity 100.
Shot timed(double exposureSeconds, double seconds)
{
    Shot shot = biased(0, seconds);
    shot.exposureSeconds = exposureSeconds;
    shot.fNumber = 8;
    shot.iso = 100;
    return shot;
}

/// Shots half a second apart.
std::vector<Shot> burst(const QVector<double> &biases)
{
    std::vector<Shot> shots;
    shots.reserve(size_t(biases.size()));
    for (int i = 0; i < biases.size(); ++i)
        shots.push_back(biased(biases[i], i * 0.5));
    return shots;
}

/// The biases of the brackets, as "-2 0 2, -2 0 2".
QString toText(const std::vector<Bracket> &brackets)
{
    QStringList texts;
    for (const Bracket &bracket : brackets) {
        QStringList biases;
        for (const Shot &shot : bracket)
            biases += QString::number(*shot.exposureBias);
        texts += biases.join(' ');
    }
    return texts.join(QStringLiteral(", "));
}

QString find(const std::vector<Shot> &shots, const BracketRules &rules = {})
{
    return toText(brackets::find(shots, rules));
}

} // namespace

class TestBracketFinder : public QObject
{
    Q_OBJECT

private slots:
    void burst_isCutIntoBrackets_data();
    void burst_isCutIntoBrackets();
    void pair_isABracketWhenAskedFor();
    void gap_endsABracket();
    void gap_doesNotCountTheExposure();
    void otherCamera_inBetween_doesNotDisturb();
    void otherSize_inBetween_doesNotDisturb();
    void otherSizeOrOrientation_endsABracket();
    void orderOfTheShots_doesNotMatter();
    void sameTime_isOrderedByNumberInTheName();
    void manualExposure_inEvenSteps_isABracket();
    void manualExposure_inUnevenOrSmallSteps_isNone();
    void biasUnknown_fallsBackToTheExposure();
    void nothingKnown_isNoBracket();
    void noShots_giveNoBrackets();
};

void TestBracketFinder::burst_isCutIntoBrackets_data()
{
    QTest::addColumn<QVector<double>>("biases");
    QTest::addColumn<QString>("brackets");
    const auto row = [](const char *name, const QVector<double> &biases, const char *brackets) {
        QTest::newRow(name) << biases << QString(brackets);
    };
    row("three, dark to bright", {-2, 0, 2}, "-2 0 2");
    row("three, middle first", {0, -2, 2}, "0 -2 2");
    row("five, middle first", {0, -1, 1, -2, 2}, "0 -1 1 -2 2");
    row("seven in thirds", {-1, -0.67, -0.33, 0, 0.33, 0.67, 1}, "-1 -0.67 -0.33 0 0.33 0.67 1");
    row("moved by a compensation", {-3, -1, 1}, "-3 -1 1");
    row("two of three, dark to bright", {-2, 0, 2, -2, 0, 2}, "-2 0 2, -2 0 2");
    row("two of three, middle first", {0, -2, 2, 0, -2, 2}, "0 -2 2, 0 -2 2");
    row("two with other compensations", {-2, 0, 2, -1, 1, 3}, "-2 0 2, -1 1 3");
    row("three, then five", {-2, 0, 2, -4, -2, 0, 2, 4}, "-2 0 2, -4 -2 0 2 4");
    row("single shot before", {0, -2, 0, 2}, "-2 0 2");
    row("single shot after", {-2, 0, 2, 0}, "-2 0 2");
    row("single shot between", {-2, 0, 2, 0, -2, 0, 2}, "-2 0 2, -2 0 2");
    row("single shots only", {0, 0, 0, 0}, "");
    row("ended early", {-2, 0}, "");
    row("uneven steps", {-2, 0, 1}, "-2 0 1");
    row("steps too small to help", {0, 0.1, 0.2}, "");
}

void TestBracketFinder::burst_isCutIntoBrackets()
{
    QFETCH(const QVector<double>, biases);
    QFETCH(const QString, brackets);
    QCOMPARE(find(burst(biases)), brackets);
}

void TestBracketFinder::pair_isABracketWhenAskedFor()
{
    BracketRules pairs;
    pairs.fewestPictures = 2;
    QCOMPARE(find(burst({-1, 1})), QString());
    QCOMPARE(find(burst({-1, 1}), pairs), QString("-1 1"));
    QCOMPARE(find(burst({-1, 1, -1, 1}), pairs), QString("-1 1, -1 1"));
    QCOMPARE(find(burst({-2, 0, 2}), pairs), QString("-2 0 2"));
}

void TestBracketFinder::gap_endsABracket()
{
    BracketRules rules;
    rules.largestGapSeconds = 3;
    QCOMPARE(find({biased(-2, 0), biased(0, 3), biased(2, 6)}, rules), QString("-2 0 2"));
    QCOMPARE(find({biased(-2, 0), biased(0, 3), biased(2, 6.5)}, rules), QString());
}

void TestBracketFinder::gap_doesNotCountTheExposure()
{
    Shot bright = biased(0, 1);
    bright.exposureSeconds = 30;
    QCOMPARE(find({biased(-2, 0), bright, biased(2, 33)}), QString("-2 0 2"));
    bright.exposureSeconds = 20;
    QCOMPARE(find({biased(-2, 0), bright, biased(2, 33)}), QString());
}

void TestBracketFinder::otherCamera_inBetween_doesNotDisturb()
{
    Shot other = biased(0, 0.7);
    other.model = QStringLiteral("B");
    std::vector<Shot> shots = burst({-2, 0, 2});
    shots.push_back(other);
    QCOMPARE(find(shots), QString("-2 0 2"));
}

void TestBracketFinder::otherSize_inBetween_doesNotDisturb()
{
    Shot cropped = biased(-2, 0.7);
    cropped.size = QSize(5990, 3990);
    std::vector<Shot> shots = burst({-2, 0, 2});
    shots.push_back(cropped);
    QCOMPARE(find(shots), QString("-2 0 2"));
}

void TestBracketFinder::otherSizeOrOrientation_endsABracket()
{
    std::vector<Shot> shots = burst({-2, 0, 2});
    shots[1].size.transpose();
    QCOMPARE(find(shots), QString());
    shots = burst({-2, 0, 2});
    shots[2].orientation = 6;
    QCOMPARE(find(shots), QString());
}

void TestBracketFinder::orderOfTheShots_doesNotMatter()
{
    std::vector<Shot> shots = burst({-2, 0, 2, -1, 1, 3});
    std::reverse(shots.begin(), shots.end());
    QCOMPARE(find(shots), QString("-2 0 2, -1 1 3"));
}

void TestBracketFinder::sameTime_isOrderedByNumberInTheName()
{
    std::vector<Shot> shots{biased(0, 0), biased(2, 0), biased(-2, 0)};
    shots[0].path = QStringLiteral("/photos/DSC10.jpg");
    shots[1].path = QStringLiteral("/photos/DSC11.jpg");
    shots[2].path = QStringLiteral("/photos/DSC9.jpg");
    QCOMPARE(find(shots), QString("-2 0 2"));
}

void TestBracketFinder::manualExposure_inEvenSteps_isABracket()
{
    const std::vector<Bracket> brackets =
        brackets::find({timed(1.0 / 125, 0), timed(1.0 / 30, 1), timed(1.0 / 8, 2)}, {});
    QCOMPARE(brackets.size(), size_t(1));
    QCOMPARE(brackets[0].size(), size_t(3));
}

void TestBracketFinder::manualExposure_inUnevenOrSmallSteps_isNone()
{
    QCOMPARE(find({timed(1.0 / 128, 0), timed(1.0 / 64, 1), timed(1.0 / 8, 2)}), QString());
    QCOMPARE(find({timed(1.0 / 100, 0), timed(1.0 / 80, 1), timed(1.0 / 125, 2)}), QString());
}

void TestBracketFinder::biasUnknown_fallsBackToTheExposure()
{
    std::vector<Shot> shots{timed(1.0 / 64, 0), timed(1.0 / 16, 1), timed(1.0 / 4, 2)};
    shots[1].exposureBias.reset();
    QCOMPARE(brackets::find(shots, {}).size(), size_t(1));
}

void TestBracketFinder::nothingKnown_isNoBracket()
{
    std::vector<Shot> shots = burst({0, 0, 0});
    shots[1].exposureBias.reset();
    QCOMPARE(brackets::find(shots, {}).size(), size_t(0));
}

void TestBracketFinder::noShots_giveNoBrackets()
{
    QCOMPARE(brackets::find({}, {}).size(), size_t(0));
}

QTEST_GUILESS_MAIN(TestBracketFinder)
#include "tst_bracket_finder.moc"
