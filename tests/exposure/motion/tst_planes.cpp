// The small filters of the search for movement beside their definitions, and the groups of flags
// that touch beside a flood fill.

#include "FlagRuns.h"
#include "planes.h"
#include "regions.h"

#include "parallel_rows.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>

using motion::Plane;

class tst_planes : public QObject
{
    Q_OBJECT

private slots:
    void crowded_anySize_countsTheWindow_data() { addSizes(); }
    void crowded_anySize_countsTheWindow();
    void softened_anySize_isTheMean_data() { addSizes(); }
    void softened_anySize_isTheMean();
    void enlarged_anyFactor_isInterpolated_data() { addSizes(); }
    void enlarged_anyFactor_isInterpolated();
    void touching_anyFlags_groupsLikeAFlood_data() { addSizes(); }
    void touching_anyFlags_groupsLikeAFlood();
    void touching_spiral_isOneGroup();
    void touching_smallGroups_areLeftOut();
    void filters_severalThreads_giveTheSame();

private:
    static void addSizes();
};

namespace {

Plane randomPlane(QSize size, int levels, int of, QRandomGenerator &random)
{
    Plane plane(size_t(size.width()) * size_t(size.height()));
    for (uint8_t &level : plane)
        level = uint8_t(random.bounded(of) < levels ? random.bounded(1, levels + 1) : 0);
    return plane;
}

int levelAt(const Plane &plane, QSize size, int x, int y)
{
    const int column = qBound(0, x, size.width() - 1);
    const int row = qBound(0, y, size.height() - 1);
    return plane[size_t(row) * size_t(size.width()) + size_t(column)];
}

int sumAround(const Plane &plane, QSize size, int x, int y, int radius)
{
    int sum = 0;
    for (int row = y - radius; row <= y + radius; ++row)
        for (int column = x - radius; column <= x + radius; ++column)
            sum += levelAt(plane, size, column, row);
    return sum;
}

/// Where the middle of a pixel lies between two places: the first of them, and the second's share
/// in 1 / (2 factor).
std::pair<int, int> between(int pixel, int factor)
{
    const int position = 2 * pixel + 1 + factor;
    return {position / (2 * factor) - 1, position % (2 * factor)};
}

int interpolated(const Plane &plane, QSize size, int factor, int x, int y)
{
    const auto [column, right] = between(x, factor);
    const auto [row, below] = between(y, factor);
    const int full = 2 * factor;
    const auto mixedDown = [&, row = row, below = below](int at) {
        return levelAt(plane, size, at, row) * (full - below) +
               levelAt(plane, size, at, row + 1) * below;
    };
    const int sum = mixedDown(column) * (full - right) + mixedDown(column + 1) * right;
    return (sum + full * full / 2) / (full * full);
}

void flood(Plane &left, QSize size, int x, int y, motion::Region &group)
{
    std::vector<QPoint> open{{x, y}};
    while (!open.empty()) {
        const QPoint at = open.back();
        open.pop_back();
        if (!QRect(QPoint(), size).contains(at))
            continue;
        uint8_t &flag = left[size_t(at.y()) * size_t(size.width()) + size_t(at.x())];
        if (flag == 0)
            continue;
        flag = 0;
        group.push_back(size_t(at.y()) * size_t(size.width()) + size_t(at.x()));
        for (int i = 0; i < 9; ++i)
            open.push_back(at + QPoint(i % 3 - 1, i / 3 - 1));
    }
    std::sort(group.begin(), group.end());
}

std::vector<motion::Region> flooded(const Plane &flags, QSize size)
{
    Plane left = flags;
    std::vector<motion::Region> groups;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            motion::Region group;
            flood(left, size, x, y, group);
            if (!group.empty())
                groups.push_back(group);
        }
    }
    return groups;
}

} // namespace

void tst_planes::addSizes()
{
    QTest::addColumn<QSize>("size");
    for (const QSize size : {QSize(1, 1), QSize(1, 37), QSize(37, 1), QSize(2, 3), QSize(15, 16),
                             QSize(31, 33), QSize(64, 65), QSize(211, 307)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void tst_planes::crowded_anySize_countsTheWindow()
{
    QFETCH(QSize, size);
    QRandomGenerator random(31);
    for (const int radius : {0, 1, 2, 3, 6, 7}) {
        // The last one flags every place: the largest sum must fit.
        for (const int part : {1, 5, 1000}) {
            const Plane flags = randomPlane(size, 1, part == 1000 ? 1 : part + 1, random);
            const int least = part == 1000 ? (2 * radius + 1) * (2 * radius + 1) : 1 + radius;
            const Plane result =
                motion::planes::crowded(flags, size.width(), size.height(), radius, least);
            for (int y = 0; y < size.height(); ++y)
                for (int x = 0; x < size.width(); ++x)
                    QCOMPARE(levelAt(result, size, x, y),
                             int(sumAround(flags, size, x, y, radius) >= least));
        }
    }
}

void tst_planes::softened_anySize_isTheMean()
{
    QFETCH(QSize, size);
    QRandomGenerator random(32);
    for (const int of : {256, 2000, 255}) {
        const Plane levels = randomPlane(size, 255, of, random);
        const Plane result = motion::planes::softened(levels, size.width(), size.height());
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x)
                QCOMPARE(levelAt(result, size, x, y), (sumAround(levels, size, x, y, 2) + 12) / 25);
    }
}

void tst_planes::enlarged_anyFactor_isInterpolated()
{
    QFETCH(QSize, size);
    QRandomGenerator random(33);
    Plane levels = randomPlane(size, 255, 400, random);
    // Rows of one level, two of them alike.
    for (int row : {0, size.height() / 2, size.height() / 2 + 1})
        if (row < size.height())
            std::fill_n(levels.begin() + row * size.width(), size.width(), uint8_t(255));
    for (const int factor : {1, 2, 4, 8}) {
        for (const QSize cut : {QSize(0, 0), QSize(factor - 1, factor / 2)}) {
            const QSize large = size * factor - cut;
            const QImage picture =
                motion::planes::enlarged(levels, size.width(), size.height(), factor, large);
            QCOMPARE(picture.size(), large);
            for (int y = 0; y < large.height(); ++y)
                for (int x = 0; x < large.width(); ++x)
                    if (picture.constScanLine(y)[x] != interpolated(levels, size, factor, x, y))
                        QFAIL(qPrintable(QString("factor %1 at %2, %3").arg(factor).arg(x).arg(y)));
        }
    }
}

void tst_planes::touching_anyFlags_groupsLikeAFlood()
{
    QFETCH(QSize, size);
    QRandomGenerator random(34);
    for (const int of : {1, 2, 3, 6, 20}) {
        const Plane flags = randomPlane(size, 1, of, random);
        QVERIFY(motion::touching(flags, size.width(), 1) == flooded(flags, size));
    }
    const Plane none(size_t(size.width()) * size_t(size.height()));
    QVERIFY(motion::touching(none, size.width(), 1).empty());
}

/// Many runs that turn out to belong together only at the end.
void tst_planes::touching_spiral_isOneGroup()
{
    const QSize size(61, 61);
    Plane flags(size_t(size.width()) * size_t(size.height()));
    QPoint at(0, 0);
    QPoint step(1, 0);
    int length = size.width() - 1;
    for (int side = 0; length > 0; ++side) {
        for (int i = 0; i < length; ++i, at += step)
            flags[size_t(at.y() * size.width() + at.x())] = 1;
        step = QPoint(-step.y(), step.x());
        if (side >= 2 && side % 2 == 0)
            length -= 2;
    }
    QCOMPARE(motion::touching(flags, size.width(), 1).size(), size_t(1));
    QVERIFY(motion::touching(flags, size.width(), 1) == flooded(flags, size));
}

void tst_planes::touching_smallGroups_areLeftOut()
{
    const Plane flags{1, 0, 1, 1, 0, 1, //
                      0, 0, 0, 0, 0, 1, //
                      1, 0, 0, 0, 0, 1};
    const std::vector<motion::Region> pairs{{2, 3}, {5, 11, 17}};
    const std::vector<motion::Region> threes{{5, 11, 17}};
    QVERIFY(motion::touching(flags, 6, 2) == pairs);
    QVERIFY(motion::touching(flags, 6, 3) == threes);
    QVERIFY(motion::touching(flags, 6, 4).empty());
}

void tst_planes::filters_severalThreads_giveTheSame()
{
    const QSize size(701, 397); // worth several threads
    QRandomGenerator random(35);
    const Plane levels = randomPlane(size, 255, 300, random);
    const Plane flags = randomPlane(size, 1, 9, random);
    const auto all = [&] {
        return std::tuple(motion::planes::crowded(flags, size.width(), size.height(), 3, 2),
                          motion::planes::softened(levels, size.width(), size.height()),
                          motion::planes::enlarged(levels, size.width(), size.height(), 4,
                                                   size * 4 - QSize(3, 2)));
    };
    parallel::setThreadLimit(1);
    const auto one = all();
    for (const int threads : {2, 7}) {
        parallel::setThreadLimit(threads);
        QVERIFY(all() == one);
    }
    parallel::setThreadLimit(0);
}

QTEST_GUILESS_MAIN(tst_planes)
#include "tst_planes.moc"
