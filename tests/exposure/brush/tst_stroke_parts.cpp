#include "stroke_parts.h"
#include "stroke_path.h"

#include "parallel_rows.h"

#include <QtTest>

#include <cmath>
#include <map>
#include <random>

using brush::kErase;
using brush::Parts;
using brush::Stroke;
using brush::Strokes;

class TestStrokeParts : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { parallel::setThreadLimit(0); }
    void parts_randomStrokes_equalTheDefinition_data();
    void parts_randomStrokes_equalTheDefinition();
    void parts_severalThreads_giveTheSame();
    void parts_noStrokes_areNone();
    void parts_erased_areNone();
    void parts_smallestBrushAtSmallestScale_stillPaints();
    void parts_strokeBeyondThePicture_isCut();
    void things_keepTheirOrderAndAreScaled();
    void things_erasedAfterwards_areNoMore();
};

namespace {

bool isOn(const Stroke &stroke, QPointF middle, double scale)
{
    const auto placeOf = [scale](QPoint point) {
        return (QPointF(point) + QPointF(0.5, 0.5)) * scale;
    };
    for (size_t i = 0; i < stroke.points.size(); ++i)
        if (brush::distanceToSegment(middle, placeOf(stroke.points[i == 0 ? 0 : i - 1]),
                                     placeOf(stroke.points[i])) <=
            std::max(stroke.radius * scale, 0.71))
            return true;
    return false;
}

int shotAt(const Strokes &strokes, int x, int y, double scale)
{
    int shot = kErase;
    for (const Stroke &stroke : strokes)
        if (isOn(stroke, {x + 0.5, y + 0.5}, scale))
            shot = stroke.shot;
    return shot;
}

/// Turned by no simple angle, so that no pixel lies on an edge.
Strokes randomStrokes(QSize size, int most)
{
    std::mt19937 random(23);
    Strokes strokes;
    for (int i = 0; i < 9; ++i) {
        Stroke stroke;
        stroke.shot = int(random() % 4) - 1;
        stroke.radius = int(random() % unsigned(most)) + 1;
        for (unsigned count = random() % 5 + 1; count > 0; --count)
            stroke.points.push_back({int(random() % unsigned(size.width() + 10)) - 5,
                                     int(random() % unsigned(size.height() + 10)) - 5});
        strokes.push_back(stroke);
    }
    return strokes;
}

} // namespace

void TestStrokeParts::parts_randomStrokes_equalTheDefinition_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<double>("scale");
    QTest::newRow("1 x 1") << QSize(1, 1) << 1.0;
    QTest::newRow("1 x 50") << QSize(1, 50) << 1.0;
    QTest::newRow("101 x 83") << QSize(101, 83) << 1.0;
    QTest::newRow("101 x 83 of a third") << QSize(101, 83) << 0.331;
    QTest::newRow("64 x 48 of the double") << QSize(64, 48) << 2.0;
}

void TestStrokeParts::parts_randomStrokes_equalTheDefinition()
{
    QFETCH(QSize, size);
    QFETCH(double, scale);
    const Strokes strokes = randomStrokes((QSizeF(size) / scale).toSize().expandedTo({1, 1}), 20);
    const Parts parts = brush::parts(strokes, size, scale);
    std::map<int, QImage> masks;
    for (const motion::Take &take : parts.takes) {
        QCOMPARE(take.mask.format(), QImage::Format_Grayscale8);
        QCOMPARE(take.mask.size(), size);
        QVERIFY(masks.emplace(take.shot, take.mask).second);
    }
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            for (int shot = 0; shot < 3; ++shot) {
                const bool isTaken =
                    masks.count(shot) != 0 && masks[shot].constScanLine(y)[x] == 255;
                QCOMPARE(isTaken, shotAt(strokes, x, y, scale) == shot);
            }
}

void TestStrokeParts::parts_severalThreads_giveTheSame()
{
    const QSize size(803, 601);
    const Strokes strokes = randomStrokes(size, 90);
    parallel::setThreadLimit(1);
    const Parts one = brush::parts(strokes, size);
    parallel::setThreadLimit(5);
    const Parts many = brush::parts(strokes, size);
    QCOMPARE(many.takes.size(), one.takes.size());
    for (size_t i = 0; i < one.takes.size(); ++i)
        QCOMPARE(many.takes[i].mask, one.takes[i].mask);
}

void TestStrokeParts::parts_noStrokes_areNone()
{
    const Parts parts = brush::parts({}, {40, 30});
    QVERIFY(parts.takes.empty());
    QVERIFY(parts.things.empty());
}

void TestStrokeParts::parts_erased_areNone()
{
    const Strokes strokes{{1, 5, {{20, 20}}}, {kErase, 6, {{18, 20}, {22, 20}}}};
    QVERIFY(brush::parts(strokes, {40, 40}).takes.empty());
}

void TestStrokeParts::parts_smallestBrushAtSmallestScale_stillPaints()
{
    for (int x = 0; x < 40; ++x) {
        const Parts parts = brush::parts({{0, 1, {{x, 17}}}}, {10, 10}, 0.25);
        QCOMPARE(parts.takes.size(), size_t(1));
    }
}

void TestStrokeParts::parts_strokeBeyondThePicture_isCut()
{
    const Strokes beyond{{0, 4, {{-50, 10}}}, {1, 4, {{10, 999}}}, {2, 9, {{100000, 10}}}};
    QVERIFY(brush::parts(beyond, {20, 20}).takes.empty());
    const Parts across = brush::parts({{0, 3, {{-1000, 10}, {1000, 10}}}}, {20, 20});
    QCOMPARE(across.takes.size(), size_t(1));
    QCOMPARE(int(across.takes[0].mask.constScanLine(10)[0]), 255);
    QCOMPARE(int(across.takes[0].mask.constScanLine(10)[19]), 255);
    QCOMPARE(int(across.takes[0].mask.constScanLine(15)[10]), 0);
}

void TestStrokeParts::things_keepTheirOrderAndAreScaled()
{
    const Parts parts =
        brush::parts({{1, 0, {{40, 22}}}, {0, 3, {{5, 5}}}, {2, 0, {{41, 23}}}}, {50, 50}, 0.5);
    QCOMPARE(parts.things.size(), size_t(2));
    QCOMPARE(parts.things[0].shot, 1);
    QCOMPARE(parts.things[0].place, QPoint(20, 11));
    QCOMPARE(parts.things[1].shot, 2);
    QCOMPARE(parts.things[1].place, QPoint(20, 11));
    QCOMPARE(parts.takes.size(), size_t(1));
}

void TestStrokeParts::things_erasedAfterwards_areNoMore()
{
    const Stroke erasing{kErase, 5, {{10, 10}, {30, 10}}};
    const Strokes strokes{{1, 0, {{20, 14}}}, {2, 0, {{20, 16}}}, erasing, {0, 0, {{12, 10}}}};
    const Parts parts = brush::parts(strokes, {50, 50});
    QCOMPARE(parts.things.size(), size_t(2));
    QCOMPARE(parts.things[0].shot, 2);
    QCOMPARE(parts.things[1].shot, 0);
}

QTEST_GUILESS_MAIN(TestStrokeParts)
#include "tst_stroke_parts.moc"
