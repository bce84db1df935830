#include "bracket_finder.h"

#include <QtTest>

#include <cmath>

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
        for (const Shot &shot : bracket.shots)
            biases += QString::number(*shot.exposureBias);
        texts += biases.join(' ');
    }
    return texts.join(QStringLiteral(", "));
}

QString find(const std::vector<Shot> &shots, const BracketRules &rules = {})
{
    return toText(brackets::find(shots, rules).brackets);
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
    void biasesInUnevenSteps_areOneBracket();
    void manyExposures_areOneBracketEach_data();
    void manyExposures_areOneBracketEach();
    void manyExposures_goingOnInAnotherScene_areToldApartByThePictures();
    void meteredEachTime_isNoBracket();
    void meteredEachTime_butBracketedByTheMakerNote_isOne();
    void steepExposuresOfTheCamera_areDoubted();
    void panoramaSetByHand_isNoBracket();
    void extraOrMissingShot_doesNotSplit();
    void zoomedOrOtherLens_endsABracket();
    void longPause_withoutPictures_isWarnedOf();
    void longPause_sameScene_isABracket();
    void brokenRhythm_isTwoBracketsWhereBothAreWhole();
    void clockWithoutSeconds_goesByNumbers();
    void clockSetBack_goesByNumbers();
    void wholeHourInABracket_isTheClock();
    void renamedFiles_goByTime();
    void twoBodiesOfOneModel_areToldApart();
    void lensWithoutContacts_isNoObstacle();
    void biasesThatTheExposuresDoNotFollow_areWarnedOf();
    void mostPictures_areHonoured();
    void leftOver_tellsWhy();
    void tie_goesToTheShotsThatStandApart();
    void tenThousandShotsOfOneTime_areCut();
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
    BracketRules rules;
    rules.largestGapSeconds = 5;
    Shot bright = biased(0, 1);
    bright.exposureSeconds = 30;
    QCOMPARE(find({biased(-2, 0), bright, biased(2, 33)}, rules), QString("-2 0 2"));
    bright.exposureSeconds = 20;
    QCOMPARE(find({biased(-2, 0), bright, biased(2, 33)}, rules), QString());
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
        brackets::find({timed(1.0 / 125, 0), timed(1.0 / 30, 1), timed(1.0 / 8, 2)}, {}).brackets;
    QCOMPARE(brackets.size(), size_t(1));
    QCOMPARE(brackets[0].shots.size(), size_t(3));
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
    QCOMPARE(brackets::find(shots, {}).brackets.size(), size_t(1));
}

void TestBracketFinder::nothingKnown_isNoBracket()
{
    std::vector<Shot> shots = burst({0, 0, 0});
    shots[1].exposureBias.reset();
    QCOMPARE(brackets::find(shots, {}).brackets.size(), size_t(0));
}

void TestBracketFinder::noShots_giveNoBrackets()
{
    QCOMPARE(brackets::find({}, {}).brackets.size(), size_t(0));
}

void TestBracketFinder::biasesInUnevenSteps_areOneBracket()
{
    QCOMPARE(find(burst({2, 1.5, 1, .3, -.5, -1})), QString("2 1.5 1 0.3 -0.5 -1"));
}

/// So many exposures by hand, 3 to 8 seconds apart, after those that are there.
void addByHand(std::vector<Shot> &shots, const std::vector<double> &stops, QRandomGenerator &random)
{
    double seconds = shots.empty() ? 0 : double(kNoon.msecsTo(shots.back().takenAt)) / 1000 + 5;
    for (const double stop : stops) {
        Shot shot = timed(0.01 * std::exp2(stop), seconds);
        shot.mode = Shot::Exposure::ByHand;
        shot.path = QStringLiteral("/photos/IMG_%1.jpg").arg(1000 + shots.size());
        shots.push_back(shot);
        seconds += shot.exposureSeconds + 3 + 5 * random.generateDouble();
    }
}

std::vector<double> row(int count, double first, double step)
{
    std::vector<double> stops;
    for (int i = 0; i < count; ++i)
        stops.push_back(first + i * step);
    return stops;
}

QList<int> sizesOf(const Grouping &grouping)
{
    QList<int> sizes;
    for (const Bracket &bracket : grouping.brackets)
        sizes += int(bracket.shots.size());
    return sizes;
}

/// What pictures would tell of scenes of so many shots each.
brackets::SceneTest scenesOf(const std::vector<Shot> &shots, const std::vector<size_t> &counts)
{
    QHash<QString, int> sceneOf;
    size_t next = 0;
    for (size_t scene = 0; scene < counts.size(); ++scene) {
        for (size_t i = 0; i < counts[scene]; ++i)
            sceneOf.insert(shots[next++].path, int(scene));
    }
    return [sceneOf](const Shot &one, const Shot &other) {
        return sceneOf.value(one.path) == sceneOf.value(other.path) ? brackets::Scene::Same
                                                                    : brackets::Scene::Other;
    };
}

void TestBracketFinder::manyExposures_areOneBracketEach_data()
{
    QTest::addColumn<double>("step");
    QTest::addColumn<bool>("turnsBack");
    QTest::newRow("all rising") << 1.0 << false;
    QTest::newRow("rising, falling, rising") << 1.0 << true;
    QTest::newRow("thirds rising") << 1.0 / 3 << false;
    QTest::newRow("thirds rising, falling, rising") << 1.0 / 3 << true;
    QTest::newRow("two thirds falling, rising, falling") << -2.0 / 3 << true;
}

void TestBracketFinder::manyExposures_areOneBracketEach()
{
    QFETCH(const double, step);
    QFETCH(const bool, turnsBack);
    for (quint32 seed = 1; seed <= 20; ++seed) {
        QRandomGenerator random(seed);
        std::vector<Shot> shots;
        addByHand(shots, row(13, -6 * step, step), random);
        addByHand(shots, turnsBack ? row(14, 7 * step, -step) : row(14, -6 * step, step), random);
        addByHand(shots, row(13, -6 * step, step), random);
        QCOMPARE(sizesOf(brackets::find(shots, {})), QList<int>({13, 14, 13}));
        const Grouping seen = brackets::find(shots, {}, scenesOf(shots, {13, 14, 13}));
        QCOMPARE(sizesOf(seen), QList<int>({13, 14, 13}));
        for (const Bracket &bracket : seen.brackets)
            QCOMPARE(bracket.warnings, QStringList());
    }
}

void TestBracketFinder::manyExposures_goingOnInAnotherScene_areToldApartByThePictures()
{
    QRandomGenerator random(3);
    std::vector<Shot> shots;
    addByHand(shots, row(27, -9, 2.0 / 3), random);
    QCOMPARE(sizesOf(brackets::find(shots, {}, scenesOf(shots, {13, 14}))), QList<int>({13, 14}));
    const Grouping unseen = brackets::find(shots, {});
    QCOMPARE(sizesOf(unseen), QList<int>({27}));
    QCOMPARE(unseen.brackets[0].warnings.size(), 1);
}

void TestBracketFinder::meteredEachTime_isNoBracket()
{
    std::vector<Shot> shots;
    for (const double stop : {0.0, 0.33, 0.7, 1.3, 1.7})
        shots.push_back(timed(0.01 * std::exp2(stop), double(shots.size())));
    for (Shot &shot : shots)
        shot.mode = Shot::Exposure::Automatic;
    QCOMPARE(sizesOf(brackets::find(shots, {})), QList<int>());
}

/// Some cameras keep the bias at 0 and note the bracket elsewhere.
void TestBracketFinder::meteredEachTime_butBracketedByTheMakerNote_isOne()
{
    std::vector<Shot> shots;
    for (const double stop : {0.0, -0.67, 0.67, 0.0, 0.0}) {
        shots.push_back(timed(0.01 * std::exp2(stop), 0.5 * double(shots.size())));
        shots.back().mode = Shot::Exposure::Automatic;
        shots.back().bracketStops = stop;
    }
    const auto seen = scenesOf(shots, {5});
    const Grouping found = brackets::find(shots, {}, seen);
    QCOMPARE(sizesOf(found), QList<int>({3}));
    QCOMPARE(found.brackets[0].shots[0].path, shots[0].path);
    for (Shot &shot : shots)
        shot.bracketStops.reset();
    QCOMPARE(sizesOf(brackets::find(shots, {}, seen)), QList<int>());
}

void TestBracketFinder::steepExposuresOfTheCamera_areDoubted()
{
    std::vector<Shot> shots;
    for (const double stop : {0.0, 1.0, 2.0, 3.0})
        shots.push_back(timed(0.01 * std::exp2(stop), double(shots.size())));
    for (Shot &shot : shots)
        shot.mode = Shot::Exposure::Automatic;
    const Grouping unseen = brackets::find(shots, {});
    QCOMPARE(sizesOf(unseen), QList<int>({4}));
    QCOMPARE(unseen.brackets[0].warnings.size(), 1);
    QCOMPARE(sizesOf(brackets::find(shots, {}, scenesOf(shots, {1, 1, 1, 1}))), QList<int>());
}

void TestBracketFinder::panoramaSetByHand_isNoBracket()
{
    std::vector<Shot> shots;
    for (int i = 0; i < 8; ++i)
        shots.push_back(timed(0.01, 2 * i));
    const Grouping grouping = brackets::find(shots, {});
    QCOMPARE(sizesOf(grouping), QList<int>());
    QCOMPARE(grouping.leftOver.size(), size_t(8));
    for (const LeftOver &left : grouping.leftOver)
        QCOMPARE(left.reason, QString("its neighbours have the same exposure"));
}

void TestBracketFinder::extraOrMissingShot_doesNotSplit()
{
    QCOMPARE(find(burst({-2, -1, 1, 2})), QString("-2 -1 1 2"));
    QCOMPARE(find(burst({0, -1, 1, 2})), QString("0 -1 1 2"));
    const Grouping extra = brackets::find(burst({-2, -1, -1, 0, 1, 2}), {});
    QCOMPARE(toText(extra.brackets), QString("-2 -1 -1 0 1 2"));
    QCOMPARE(extra.brackets[0].warnings, QStringList("some shots have the same exposure"));
}

void TestBracketFinder::zoomedOrOtherLens_endsABracket()
{
    std::vector<Shot> shots = burst({-2, 0, 2, 4});
    for (Shot &shot : shots)
        shot.focalLength = 50;
    shots[3].focalLength = 51; // as noted after focusing anew
    QCOMPARE(find(shots), QString("-2 0 2 4"));
    shots[3].focalLength = 70;
    QCOMPARE(find(shots), QString("-2 0 2"));
    shots[3].focalLength = 50;
    shots[3].lens = QStringLiteral("B");
    QCOMPARE(find(shots), QString("-2 0 2"));
}

void TestBracketFinder::longPause_withoutPictures_isWarnedOf()
{
    const auto found = [](double pause) {
        return brackets::find({biased(-2, 0), biased(0, pause), biased(2, 2 * pause)}, {}).brackets;
    };
    QCOMPARE(found(1)[0].warnings, QStringList());
    QCOMPARE(found(20)[0].warnings.size(), 1);
    QVERIFY(found(61).empty());
}

void TestBracketFinder::longPause_sameScene_isABracket()
{
    const std::vector<Shot> shots{biased(-2, 0), biased(0, 200), biased(2, 330)};
    for (const auto answer :
         {brackets::Scene::Same, brackets::Scene::Other, brackets::Scene::Unknown}) {
        const Grouping grouping =
            brackets::find(shots, {}, [answer](const Shot &, const Shot &) { return answer; });
        QCOMPARE(sizesOf(grouping),
                 answer == brackets::Scene::Same ? QList<int>({3}) : QList<int>());
    }
}

void TestBracketFinder::brokenRhythm_isTwoBracketsWhereBothAreWhole()
{
    std::vector<Shot> shots = burst({-3, -2, -1, 0, 1, 2});
    for (size_t i = 3; i < 6; ++i)
        shots[i].takenAt = shots[i].takenAt.addSecs(6);
    QCOMPARE(find(shots), QString("-3 -2 -1, 0 1 2"));
}

void TestBracketFinder::clockWithoutSeconds_goesByNumbers()
{
    std::vector<Shot> shots;
    for (int i = 0; i < 12; ++i) {
        Shot shot = biased(2 * (i % 3) - 2, 60 * (i / 6));
        shot.path = QStringLiteral("/photos/IMG_%1.jpg").arg(9 + i);
        shots.push_back(shot);
    }
    std::reverse(shots.begin(), shots.end());
    QCOMPARE(find(shots), QString("-2 0 2, -2 0 2, -2 0 2, -2 0 2"));
}

void TestBracketFinder::clockSetBack_goesByNumbers()
{
    std::vector<Shot> shots;
    for (int i = 0; i < 30; ++i) {
        Shot shot = biased(2 * (i % 3) - 2, 100 * (i / 3) + i % 3);
        if (i >= 15)
            shot.takenAt = shot.takenAt.addSecs(-500); // into the midst of the others
        shot.path = QStringLiteral("/photos/IMG_%1.jpg").arg(100 + i);
        shots.push_back(shot);
    }
    QCOMPARE(sizesOf(brackets::find(shots, {})), QList<int>(10, 3));
}

void TestBracketFinder::wholeHourInABracket_isTheClock()
{
    for (const int hours : {-1, 1}) {
        std::vector<Shot> shots;
        for (int i = 0; i < 12; ++i) {
            Shot shot =
                biased(2 * (i % 3) - 2, 100 * (i / 3) + i % 3 + (i >= 7 ? 3600 * hours : 0));
            shot.path = QStringLiteral("/photos/IMG_%1.jpg").arg(100 + i);
            shots.push_back(shot);
        }
        QCOMPARE(sizesOf(brackets::find(shots, {})), QList<int>(4, 3));
    }
}

void TestBracketFinder::renamedFiles_goByTime()
{
    std::vector<Shot> shots = burst({-2, 0, 2, -2, 0, 2, -2, 0, 2});
    const int numbers[] = {4, 9, 1, 7, 3, 8, 2, 6, 5};
    for (size_t i = 0; i < shots.size(); ++i)
        shots[i].path = QStringLiteral("/photos/%1.jpg").arg(numbers[i]);
    QCOMPARE(find(shots), QString("-2 0 2, -2 0 2, -2 0 2"));
}

void TestBracketFinder::twoBodiesOfOneModel_areToldApart()
{
    std::vector<Shot> shots = burst({-2, -1, 0, 0, 2, 1});
    for (size_t i = 0; i < shots.size(); ++i)
        shots[i].serial = QString::number(i % 2);
    QCOMPARE(find(shots), QString("-2 0 2, -1 0 1"));
}

void TestBracketFinder::lensWithoutContacts_isNoObstacle()
{
    std::vector<Shot> shots{timed(1.0 / 64, 0), timed(1.0 / 16, 1), timed(1.0 / 4, 2)};
    for (Shot &shot : shots)
        shot.fNumber = 0;
    QCOMPARE(sizesOf(brackets::find(shots, {})), QList<int>({3}));
}

void TestBracketFinder::biasesThatTheExposuresDoNotFollow_areWarnedOf()
{
    std::vector<Shot> shots = burst({-2, 0, 2});
    for (Shot &shot : shots)
        shot.exposureSeconds = 0.01;
    const Grouping grouping = brackets::find(shots, {});
    QCOMPARE(sizesOf(grouping), QList<int>({3}));
    QCOMPARE(grouping.brackets[0].warnings,
             QStringList("the exposures do not follow the exposure biases"));
}

void TestBracketFinder::mostPictures_areHonoured()
{
    BracketRules rules;
    rules.mostPictures = 3;
    QCOMPARE(find(burst({-3, -2, -1, 0, 1, 2}), rules), QString("-3 -2 -1, 0 1 2"));
    rules.mostPictures = 6;
    QCOMPARE(find(burst({-3, -2, -1, 0, 1, 2}), rules), QString("-3 -2 -1 0 1 2"));
}

void TestBracketFinder::leftOver_tellsWhy()
{
    std::vector<Shot> shots = burst({-2, 0, 2});
    shots.push_back(biased(1, 200));  // alone
    shots.push_back(biased(-1, 400)); // interrupted
    shots.push_back(biased(0, 401));
    const Grouping grouping = brackets::find(shots, {});
    QCOMPARE(sizesOf(grouping), QList<int>({3}));
    QCOMPARE(grouping.leftOver.size(), size_t(3));
    QVERIFY(grouping.leftOver[0].reason.contains("stands alone"));
    QVERIFY(grouping.leftOver[1].reason.contains("no bracket of 3 exposures"));
    QVERIFY(grouping.leftOver[2].reason.contains("no bracket of 3 exposures"));
}

void TestBracketFinder::tie_goesToTheShotsThatStandApart()
{
    QCOMPARE(find({biased(-2, 0), biased(0, 5), biased(2, 10), biased(0, 10.5), biased(-2, 11)}),
             QString("2 0 -2"));
    QCOMPARE(find({biased(-2, 0), biased(0, 0.5), biased(2, 1), biased(0, 6), biased(-2, 11)}),
             QString("-2 0 2"));
}

void TestBracketFinder::tenThousandShotsOfOneTime_areCut()
{
    std::vector<Shot> shots;
    for (int i = 0; i < 9999; ++i) {
        Shot shot = biased(2 * (i % 3) - 2, 0);
        shot.path = QStringLiteral("/photos/IMG_%1.jpg").arg(i);
        shots.push_back(shot);
    }
    QCOMPARE(brackets::find(shots, {}).brackets.size(), size_t(3333));
}

QTEST_GUILESS_MAIN(TestBracketFinder)
#include "tst_bracket_finder.moc"
