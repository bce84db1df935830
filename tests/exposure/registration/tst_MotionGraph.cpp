#include "MotionGraph.h"
#include "rendered_shots.h"

#include <QtTest>

#include <cmath>

using namespace registration;

namespace {

constexpr QSize kSize(640, 480);

/// Where the reference's pixels lie in a shot.
Matrix truth(int shot)
{
    return inverse(rendered::turned(kSize, 0.3 * shot, 5.0 * shot, -3.0 * shot));
}

PairResult found(const Matrix &toShot, double residual, Kind kind = Kind::Rigid)
{
    PairResult pair;
    pair.kind = kind;
    pair.toShot = toShot;
    pair.confidence = 1.0;
    pair.residualPixels = residual;
    pair.reason = Reason::None;
    return pair;
}

/// What a comparison of two shots finds that is off by so much.
PairResult comparison(int from, int to, QPointF off, double residual = 0.3)
{
    return found(product(shiftMatrix(off.x(), off.y()), product(truth(to), inverse(truth(from)))),
                 residual);
}

double error(const PairResult &place, int shot)
{
    return cornerDistance(place.toShot, truth(shot), kSize);
}

} // namespace

class TestMotionGraph : public QObject
{
    Q_OBJECT

private slots:
    void solve_exactPairs_givesTheTruth()
    {
        MotionGraph graph(3, 0, kSize);
        graph.add(0, 1, comparison(0, 1, {}));
        graph.add(0, 2, comparison(0, 2, {}));
        graph.add(1, 2, comparison(1, 2, {}));
        std::vector<PairResult> places{found(identityMatrix(), 0, Kind::Identity),
                                       comparison(0, 1, {0.4, -0.3}), comparison(0, 2, {-0.5, 0})};
        graph.solve(places);
        QVERIFY(error(places[1], 1) < 1e-3);
        QVERIFY(error(places[2], 2) < 1e-3);
        QCOMPARE(places[1].kind, Kind::Rigid);
    }

    void solve_pairsThatErr_sharesTheError()
    {
        // The loop 0, 1, 2 is open by 0.9 pixels; each of three equal pairs bears a third.
        MotionGraph graph(3, 0, kSize);
        graph.add(0, 1, comparison(0, 1, {}));
        graph.add(0, 2, comparison(0, 2, {0.9, 0}));
        graph.add(1, 2, comparison(1, 2, {}));
        std::vector<PairResult> places{found(identityMatrix(), 0, Kind::Identity),
                                       comparison(0, 1, {}), comparison(0, 2, {0.9, 0})};
        graph.solve(places);
        QVERIFY(std::abs(error(places[1], 1) - 0.3) < 0.02);
        QVERIFY(std::abs(error(places[2], 2) - 0.6) < 0.02);
    }

    void solve_pairsOfUnequalResidual_followsTheSmaller()
    {
        MotionGraph graph(2, 0, kSize);
        graph.add(0, 1, comparison(0, 1, {0.5, 0}, 1.0));
        graph.add(0, 1, comparison(0, 1, {}, 0.05));
        std::vector<PairResult> places{found(identityMatrix(), 0, Kind::Identity),
                                       comparison(0, 1, {0.5, 0})};
        graph.solve(places);
        QVERIFY(error(places[1], 1) < 0.02);
    }

    void solve_wrongPair_doesNotCount()
    {
        MotionGraph graph(3, 0, kSize);
        graph.add(0, 1, comparison(0, 1, {}));
        graph.add(0, 2, comparison(0, 2, {}));
        graph.add(1, 2, comparison(1, 2, {30, 10}, 0.01));
        std::vector<PairResult> places{found(identityMatrix(), 0, Kind::Identity),
                                       comparison(0, 1, {}), comparison(0, 2, {})};
        graph.solve(places);
        QVERIFY(error(places[1], 1) < 1e-6);
        QVERIFY(error(places[2], 2) < 1e-6);
    }

    void solve_placeThatNeedsNoResampling_staysAndHoldsTheOthers()
    {
        MotionGraph graph(3, 0, kSize);
        const Matrix whole = shiftMatrix(3, -2);
        graph.add(0, 1, found(shiftMatrix(3.3, -2), 0.3));
        graph.add(1, 2, found(shiftMatrix(0.4, 0.2), 0.3));
        std::vector<PairResult> places{found(identityMatrix(), 0, Kind::Identity),
                                       found(whole, 0.3, Kind::Shift),
                                       found(shiftMatrix(3.0, -2), 0.3)};
        graph.solve(places);
        QCOMPARE(places[1].toShot, whole);
        QVERIFY(cornerDistance(places[2].toShot, shiftMatrix(3.4, -1.8), kSize) < 1e-6);
    }

    void solve_chainOfThirty_spreadsTheLastLoop()
    {
        constexpr int kShots = 30;
        MotionGraph graph(kShots, 0, kSize);
        std::vector<PairResult> places{found(identityMatrix(), 0, Kind::Identity)};
        for (int shot = 1; shot < kShots; ++shot) {
            const double off = shot % 2 == 0 ? 0.2 : -0.2;
            graph.add(shot - 1, shot, comparison(shot - 1, shot, {off, 0}));
            graph.add(0, shot, comparison(0, shot, {-off, 0}));
            places.push_back(comparison(0, shot, {-off, 0}));
        }
        graph.solve(places);
        for (int shot = 1; shot < kShots; ++shot)
            QVERIFY2(error(places[size_t(shot)], shot) < 0.2,
                     qPrintable(QString::number(error(places[size_t(shot)], shot))));
    }

    void solve_noPairs_changesNothing()
    {
        std::vector<PairResult> places{found(identityMatrix(), 0, Kind::Identity),
                                       comparison(0, 1, {0.4, 0})};
        const Matrix before = places[1].toShot;
        MotionGraph(2, 0, kSize).solve(places);
        QCOMPARE(places[1].toShot, before);
    }

    void solve_perspectivePlaces_stayPerspective()
    {
        const Matrix tilt = inverse(rendered::tilted(kSize, 1.0, -0.7, 0.3));
        MotionGraph graph(2, 0, kSize);
        graph.add(0, 1, found(tilt, 0.1, Kind::Perspective));
        std::vector<PairResult> places{
            found(identityMatrix(), 0, Kind::Identity),
            found(product(shiftMatrix(0.5, 0.5), tilt), 0.1, Kind::Perspective)};
        graph.solve(places);
        QVERIFY(cornerDistance(places[1].toShot, tilt, kSize) < 1e-3);
    }
};

QTEST_GUILESS_MAIN(TestMotionGraph)
#include "tst_MotionGraph.moc"
