// What tells quickly where shots differ, beside the definitions.

#include "LevelMaps.h"
#include "Movement.h"
#include "SmallShot.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <functional>

using motion::LevelMaps;
using motion::Movement;
using motion::SmallShot;

class tst_Movement : public QObject
{
    Q_OBJECT

private slots:
    void shrink_anySize_findsTheRangeAround_data() { addSizes(); }
    void shrink_anySize_findsTheRangeAround();
    void maps_anyShots_keepRanks();
    void differences_anyShots_areTheLargest_data() { addSizes(); }
    void differences_anyShots_areTheLargest();
    void changes_faintAlone_isNone();

private:
    static void addSizes();
};

namespace {

/// A scene with structure, exposed; some noise, a thing that moved, some pixels not covered.
QImage shotOf(QSize size, double exposure, int moment, QRandomGenerator &random)
{
    QImage shot(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const bool isThing = QRect(10 + 20 * moment, 12, 24, 24).contains(x, y);
            const double light = isThing ? 0.4 : 0.02 + 0.9 * ((x / 6 * 7 + y / 5 * 3) % 17) / 17.0;
            const int level = int(255 * std::min(1.0, std::sqrt(light * exposure)));
            const int noisy = qBound(0, level + random.bounded(-4, 5), 255);
            const int alpha = random.bounded(300) == 0 ? 0 : 255;
            shot.setPixel(x, y, qRgba(noisy, noisy * 9 / 10, noisy * 3 / 4, alpha));
        }
    }
    return shot;
}

std::vector<SmallShot> smallShots(QSize size)
{
    QRandomGenerator random(7);
    std::vector<SmallShot> shots;
    int moment = 0;
    for (const double exposure : {3.0, 0.2, 0.8, 1.6})
        shots.push_back(motion::shrink(shotOf(size, exposure, moment++, random), 2));
    return shots;
}

/// The best of the 3 x 3 around a place, as far as there are places.
int bestAround(const SmallShot &shot, const SmallShot::Levels &levels, int x, int y,
               const std::function<int(int, int)> &best)
{
    int found = levels[size_t(y * shot.width + x)];
    for (int row = std::max(0, y - 1); row <= std::min(shot.height - 1, y + 1); ++row)
        for (int column = std::max(0, x - 1); column <= std::min(shot.width - 1, x + 1); ++column)
            found = best(found, levels[size_t(row * shot.width + column)]);
    return found;
}

/// The level of the lowest rank that is not below the middle one of this level's.
int mappedLevel(const std::vector<int> &from, const std::vector<int> &to, int level)
{
    const auto below = std::count_if(from.begin(), from.end(), [&](int l) { return l < level; });
    const auto upTo = std::count_if(from.begin(), from.end(), [&](int l) { return l <= level; });
    const auto middle = (below + upTo + 1) / 2;
    int found = 0;
    while (found < 255 &&
           std::count_if(to.begin(), to.end(), [&](int l) { return l <= found; }) < middle)
        ++found;
    return found;
}

} // namespace

void tst_Movement::addSizes()
{
    QTest::addColumn<QSize>("size");
    for (const QSize size : {QSize(1, 1), QSize(1, 9), QSize(9, 1), QSize(33, 31), QSize(130, 97)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void tst_Movement::shrink_anySize_findsTheRangeAround()
{
    QFETCH(QSize, size);
    const SmallShot shot = smallShots(size)[2];
    const auto smaller = [](int a, int b) { return std::min(a, b); };
    const auto larger = [](int a, int b) { return std::max(a, b); };
    for (size_t channel = 0; channel < 3; ++channel) {
        const SmallShot::Levels &levels = shot.levels[channel];
        for (int y = 0; y < shot.height; ++y) {
            for (int x = 0; x < shot.width; ++x) {
                const auto place = size_t(y * shot.width + x);
                const int low = bestAround(shot, levels, x, y, smaller);
                const int high = bestAround(shot, levels, x, y, larger);
                QCOMPARE(int(shot.lowest[channel][place]), (levels[place] + low) / 2);
                QCOMPARE(int(shot.highest[channel][place]), (levels[place] + high + 1) / 2);
            }
        }
    }
}

/// Uncovered places and those that mix unlike levels do not count, these as far as enough is left.
void tst_Movement::maps_anyShots_keepRanks()
{
    const std::vector<SmallShot> shots = smallShots({130, 97});
    const LevelMaps maps(shots);
    for (size_t channel = 0; channel < 3; ++channel) {
        std::vector<std::vector<int>> covered(shots.size());
        std::vector<std::vector<int>> alike(shots.size());
        for (size_t place = 0; place < shots[0].covered.size(); ++place) {
            const bool isCovered = std::all_of(shots.begin(), shots.end(), [=](const SmallShot &s) {
                return s.covered[place] != 0;
            });
            const bool isAlike = std::all_of(shots.begin(), shots.end(), [=](const SmallShot &s) {
                return s.brightest[channel][place] - s.darkest[channel][place] <= 48;
            });
            for (size_t i = 0; i < shots.size(); ++i) {
                if (isCovered)
                    covered[i].push_back(shots[i].levels[channel][place]);
                if (isCovered && isAlike)
                    alike[i].push_back(shots[i].levels[channel][place]);
            }
        }
        const bool isEnough = alike[0].size() * 4 >= covered[0].size();
        const auto &counted = isEnough ? alike : covered;
        for (size_t from = 0; from < shots.size(); ++from)
            for (size_t to = 0; to < shots.size(); ++to)
                for (int level = 0; level < 256; level += 5)
                    QCOMPARE(int(maps.map(from, to, channel)[size_t(level)]),
                             mappedLevel(counted[from], counted[to], level));
    }
}

void tst_Movement::differences_anyShots_areTheLargest()
{
    QFETCH(QSize, size);
    const std::vector<SmallShot> shots = smallShots(size);
    const Movement movement(shots);
    const std::vector<size_t> &order = movement.byBrightness();
    const motion::Plane differences = movement.differences();
    int moved = 0;
    for (size_t place = 0; place < differences.size(); ++place) {
        int largest = 0;
        for (size_t i = 0; i < order.size(); ++i)
            for (size_t j = i + 1; j < std::min(order.size(), i + 3); ++j)
                largest = std::max(largest, movement.difference(order[i], order[j], place));
        if (largest > Movement::kFaint)
            QCOMPARE(int(differences[place]), largest);
        else
            QVERIFY(differences[place] <= Movement::kFaint);
        moved += largest > Movement::kFaint ? 1 : 0;
    }
    QVERIFY(size.width() < 100 || moved > 100);
}

/// Differences beyond kFaint count where one beyond kThreshold touches them, and not alone.
void tst_Movement::changes_faintAlone_isNone()
{
    const QSize size(120, 80);
    QImage first(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            first.setPixel(x, y, qRgb(40 + x, 40 + x, 40 + x));
    QImage second = first;
    const auto shift = [&](QRect part, int by) {
        for (int y = part.top(); y <= part.bottom(); ++y)
            for (int x = part.left(); x <= part.right(); ++x)
                second.setPixel(x, y, qRgb(40 + x + by, 40 + x + by, 40 + x + by));
    };
    shift({10, 10, 16, 16}, 11); // faint, alone
    shift({70, 40, 16, 16}, 11); // faint beside clear
    shift({86, 40, 16, 16}, 60);
    const std::vector<SmallShot> shots{motion::shrink(first, 2), motion::shrink(second, 2)};
    const Movement movement(shots);
    const motion::Plane changes = movement.changes();
    const auto at = [&](int x, int y) { return int(changes[size_t(y / 2 * 60 + x / 2)]); };
    QVERIFY(movement.difference(0, 1, 18 / 2 * 60 + 18 / 2) > Movement::kFaint);
    QCOMPARE(at(18, 18), 0);
    QCOMPARE(at(78, 48), 1);
    QCOMPARE(at(94, 48), 1);
}

QTEST_GUILESS_MAIN(tst_Movement)
#include "tst_Movement.moc"
