// Somebody walks through the rendered room: found, not over-found, and whole.

#include "motion.h"
#include "sample_camera.h"
#include "walk.h"

#include <QtTest>

class tst_walking_bracket : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void find_walker_findsWhereSheIs();
    void find_walker_findsLittleElse();
    void find_walker_isTakenFromOneShotWhole();

private:
    static constexpr int kShots = 5;
    static constexpr QSize kSize{360, 240};

    sample::Walk walk;
    std::vector<QImage> shots;
    std::vector<QImage> visible; ///< the silhouettes, where one sees a difference to the empty room
    motion::Result result;
};

namespace {

/// The mask's level for a pixel of the shot; no mask is usable everywhere.
int usable(const QImage &mask, int x, int y)
{
    return mask.isNull() ? 255 : mask.constScanLine(y / 2)[x / 2];
}

/// Whether a truth has a place above `least` within so many pixels.
bool isNear(const QImage &truth, int x, int y, int reach, uchar least)
{
    for (int row = qMax(0, y - reach); row <= qMin(truth.height() - 1, y + reach); ++row)
        for (int column = qMax(0, x - reach); column <= qMin(truth.width() - 1, x + reach);
             ++column)
            if (truth.constScanLine(row)[column] >= least)
                return true;
    return false;
}

/// Of the truth's pixels of at least this level, the share for which the condition holds.
template <typename Condition>
double shareOf(const QImage &truth, uchar least, Condition condition)
{
    int all = 0;
    int holds = 0;
    for (int y = 0; y < truth.height(); ++y) {
        for (int x = 0; x < truth.width(); ++x) {
            if (truth.constScanLine(y)[x] < least)
                continue;
            ++all;
            holds += condition(x, y);
        }
    }
    return double(holds) / qMax(1, all);
}

QImage visibleParts(QImage silhouette, const QImage &shot, const QImage &empty)
{
    constexpr int kLeast = 12;
    for (int y = 0; y < shot.height(); ++y) {
        uchar *out = silhouette.scanLine(y);
        for (int x = 0; x < shot.width(); ++x)
            if (qAbs(qGray(shot.pixel(x, y)) - qGray(empty.pixel(x, y))) < kLeast)
                out[x] = 0;
    }
    return silhouette;
}

} // namespace

void tst_walking_bracket::initTestCase()
{
    walk = sample::renderWalk(kSize, 0, kShots, {});
    QCOMPARE(int(walk.moments.size()), kShots);
    for (int i = 0; i < kShots; ++i)
        shots.push_back(
            sample::photograph(walk.moments[size_t(i)], {}, kSize, 2.0 * (i - 2), quint32(40 + i)));
    const sample::RadianceImage empty = sample::renderRoom(kSize.width(), kSize.height(), 0);
    for (int i = 0; i < kShots; ++i)
        visible.push_back(
            visibleParts(walk.silhouettes[size_t(i)], shots[size_t(i)],
                         sample::photograph(empty, {}, kSize, 2.0 * (i - 2), quint32(40 + i))));
    result = motion::find(shots);
    QCOMPARE(result.status, motion::Status::Done);
    QVERIFY(!result.found.isNull());
}

void tst_walking_bracket::find_walker_findsWhereSheIs()
{
    const double recall =
        shareOf(walk.changed, 255, [&](int x, int y) { return usable(result.found, x, y) > 127; });
    QVERIFY2(recall > 0.95, qPrintable(QString::number(recall)));
}

/// Beside her, her shadow and her mirror image no more than margins.
void tst_walking_bracket::find_walker_findsLittleElse()
{
    constexpr int kMargin = 12;
    const QImage found = result.found;
    const double precision = shareOf(
        found, 128, [&](int x, int y) { return isNear(walk.changed, 2 * x, 2 * y, kMargin, 128); });
    QVERIFY2(precision > 0.97, qPrintable(QString::number(precision)));
    const double nearHer = shareOf(
        found, 128, [&](int x, int y) { return isNear(walk.changed, 2 * x, 2 * y, kMargin, 255); });
    QVERIFY2(nearHer > 0.5, qPrintable(QString::number(nearHer)));
}

/// A shot that is next to white or black where she stands hides nothing of her.
void tst_walking_bracket::find_walker_isTakenFromOneShotWhole()
{
    constexpr int kNextToWhite = 225;
    constexpr int kNextToBlack = 30;
    for (size_t moment = 0; moment < walk.silhouettes.size(); ++moment) {
        const QImage &person = visible[moment];
        const double own = shareOf(
            person, 255, [&](int x, int y) { return usable(result.masks[moment], x, y) > 127; });
        QString shares = QString("moment %1: %2").arg(moment).arg(own);
        double others = 0.0;
        for (size_t other = 0; other < shots.size(); ++other) {
            if (other == moment)
                continue;
            const double share = shareOf(person, 255, [&](int x, int y) {
                const int level = qGray(shots[other].pixel(x, y));
                const bool showsLittle = level > kNextToWhite || level < kNextToBlack;
                return usable(result.masks[other], x, y) > 127 && !showsLittle;
            });
            others = qMax(others, share);
            shares += QString(" %1").arg(share);
        }
        const bool isHere = own > 0.93 && others < 0.07;
        const bool isGone = own < 0.07;
        QVERIFY2(isHere || isGone, qPrintable(shares));
    }
}

QTEST_GUILESS_MAIN(tst_walking_bracket)
#include "tst_walking_bracket.moc"
