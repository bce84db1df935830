#include "stroke_path.h"

#include <QtTest>

#include <random>

class TestStrokePath : public QObject
{
    Q_OBJECT

private slots:
    void simplified_straightLine_keepsItsEnds();
    void simplified_oneOrEqualPoints_areOne();
    void simplified_randomLines_stayWithinTheTolerance();
    void simplified_withoutTolerance_keepsEveryCorner();
    void distance_ofPlaces_isThatToTheNearestPoint();
};

void TestStrokePath::simplified_straightLine_keepsItsEnds()
{
    const std::vector<QPoint> ends{{3, 4}, {43, 84}};
    QCOMPARE(brush::simplified({{3, 4}, {8, 14}, {20, 38}, {43, 84}}, 0.5), ends);
}

void TestStrokePath::simplified_oneOrEqualPoints_areOne()
{
    const std::vector<QPoint> one{{7, 9}};
    QCOMPARE(brush::simplified(one, 1.0), one);
    QCOMPARE(brush::simplified({{7, 9}, {7, 9}, {7, 9}}, 1.0), one);
}

void TestStrokePath::simplified_randomLines_stayWithinTheTolerance()
{
    std::mt19937 random(11);
    for (const double tolerance : {0.5, 2.0, 9.0}) {
        std::vector<QPoint> line{{100, 100}};
        for (int i = 0; i < 300; ++i)
            line.push_back(line.back() + QPoint(int(random() % 9) - 3, int(random() % 9) - 4));
        const std::vector<QPoint> less = brush::simplified(line, tolerance);
        QVERIFY(less.size() < line.size());
        QCOMPARE(less.front(), line.front());
        QCOMPARE(less.back(), line.back());
        for (const QPoint &point : line) {
            double nearest = 1e9;
            for (size_t i = 1; i < less.size(); ++i)
                nearest = std::min(nearest, brush::distanceToSegment(point, less[i - 1], less[i]));
            QVERIFY(nearest <= tolerance);
        }
    }
}

void TestStrokePath::simplified_withoutTolerance_keepsEveryCorner()
{
    const std::vector<QPoint> corners{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}};
    QCOMPARE(brush::simplified(corners, 0.0), corners);
}

void TestStrokePath::distance_ofPlaces_isThatToTheNearestPoint()
{
    QCOMPARE(brush::distanceToSegment({5, 3}, {0, 0}, {10, 0}), 3.0);
    QCOMPARE(brush::distanceToSegment({-3, 4}, {0, 0}, {10, 0}), 5.0);
    QCOMPARE(brush::distanceToSegment({13, -4}, {0, 0}, {10, 0}), 5.0);
    QCOMPARE(brush::distanceToSegment({3, 4}, {0, 0}, {0, 0}), 5.0);
}

QTEST_GUILESS_MAIN(TestStrokePath)
#include "tst_stroke_path.moc"
