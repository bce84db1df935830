#include "MovingScene.h"
#include "SmallShot.h"
#include "fusion.h"
#include "motion.h"

#include "parallel_rows.h"

#include <QPainter>
#include <QtTest>

#include <algorithm>

using motion::Status;

class tst_motion : public QObject
{
    Q_OBJECT

private slots:
    void find_nothingMoved_givesNoMasks();
    void find_shotOffByOnePixel_givesNoMasks();
    void find_movedDisc_isTakenFromOneShotWhole();
    void find_discThatCoversItself_isTakenFromOneShotWhole();
    void find_ringOrBay_onlyTheRingIsFilled_data();
    void find_ringOrBay_onlyTheRingIsFilled();
    void find_fixedReference_showsItsMoment();
    void fuse_movedDisc_looksLikeTheStillScene();
    void find_severalThreads_findTheSame();
    void find_uncoveredPixels_areNoMovement();
    void find_16Bits_findsTheSame();
    void find_tinyShots_areTaken();
    void find_unfitShots_areRefused();
    void find_cancelled_givesNothing();
    void shrink_anySize_equalsTheMeans();
};

namespace {

const QPoint kLeft(100, 120);
const QPoint kRight(200, 120);
const QPoint kNone(-1, -1);

std::vector<QImage> movedDisc()
{
    const MovingScene scene;
    return {scene.shot(0.25, kLeft), scene.shot(0.7, kRight), scene.shot(2.0, kRight)};
}

/// The mask's level for a pixel of the shot; no mask is usable everywhere.
int usable(const QImage &mask, QPoint pixel)
{
    return mask.isNull() ? 255 : mask.constScanLine(pixel.y() / 2)[pixel.x() / 2];
}

int lowestUsable(const QImage &mask, QPoint centre, int radius)
{
    int lowest = 255;
    for (int y = -radius; y <= radius; ++y)
        for (int x = -radius; x <= radius; ++x)
            lowest = qMin(lowest, usable(mask, centre + QPoint(x, y)));
    return lowest;
}

QImage fused(const std::vector<QImage> &pictures, const std::vector<QImage> &masks)
{
    std::vector<fusion::Shot> shots;
    for (size_t i = 0; i < pictures.size(); ++i)
        shots.push_back({pictures[i], i < masks.size() ? masks[i] : QImage()});
    return fusion::fuse(shots).picture;
}

/// Patches of random greys: the same for one seed. Where `changed` holds, others.
QImage patches(const QRegion &changed, quint32 otherSeed)
{
    constexpr int kPatch = 8;
    QImage picture(640, 480, QImage::Format_RGB32);
    QPainter painter(&picture);
    QRandomGenerator same(1);
    QRandomGenerator other(otherSeed);
    for (int y = 0; y < picture.height(); y += kPatch) {
        for (int x = 0; x < picture.width(); x += kPatch) {
            const int level = same.bounded(30, 220);
            const int otherLevel = other.bounded(30, 220);
            const int shown = changed.contains(QPoint(x, y)) ? otherLevel : level;
            painter.fillRect(x, y, kPatch, kPatch, QColor(shown, shown, shown));
        }
    }
    return picture;
}

double meanDifference(const QImage &first, const QImage &second, const QRect &part)
{
    double sum = 0.0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            sum += qAbs(qGray(first.pixel(x, y)) - qGray(second.pixel(x, y)));
    return sum / (part.width() * part.height());
}

} // namespace

void tst_motion::find_nothingMoved_givesNoMasks()
{
    const MovingScene scene;
    std::vector<QImage> shots;
    for (const double exposure : {0.06, 0.25, 1.0, 4.0})
        shots.push_back(scene.shot(exposure, kLeft, 1.0, quint32(exposure * 100)));
    const motion::Result result = motion::find(shots);
    QCOMPARE(result.status, Status::Done);
    QCOMPARE(result.masks.size(), size_t(4));
    QVERIFY(result.found.isNull());
    for (const QImage &mask : result.masks)
        QVERIFY(mask.isNull());
}

void tst_motion::find_shotOffByOnePixel_givesNoMasks()
{
    const MovingScene scene;
    const QImage first = scene.shot(0.5, kLeft).copy(0, 0, 319, 239);
    const QImage second = scene.shot(1.5, kLeft).copy(1, 1, 319, 239);
    QVERIFY(motion::find({first, second}).found.isNull());
}

void tst_motion::find_movedDisc_isTakenFromOneShotWhole()
{
    const std::vector<QImage> shots = movedDisc();
    const motion::Result result = motion::find(shots);
    QCOMPARE(result.status, Status::Done);
    for (const QPoint place : {kLeft, kRight}) {
        QCOMPARE(usable(result.found, place), 255);
        // The first shot and the others never show the same here: only one side stays.
        const int first = lowestUsable(result.masks[0], place, 20);
        const int second = lowestUsable(result.masks[1], place, 20);
        QVERIFY2(first == 0 || second == 0, "both moments are used");
        const int most = std::max({first, second, lowestUsable(result.masks[2], place, 20)});
        QCOMPARE(most, 255);
    }
    QCOMPARE(usable(result.found, {20, 20}), 0);
    QCOMPARE(usable(result.masks[0], {20, 20}), 255);
}

/// A large disc of one colour that moved by less than its size: in its middle nothing changed.
void tst_motion::find_discThatCoversItself_isTakenFromOneShotWhole()
{
    const QPoint middle(160, 120);
    std::vector<QImage> shots;
    for (const int moment : {0, 1}) {
        QImage shot = MovingScene().shot(moment == 0 ? 0.4 : 1.2, kNone);
        QPainter painter(&shot);
        painter.setPen(Qt::NoPen);
        painter.setBrush(moment == 0 ? QColor(90, 20, 20) : QColor(148, 33, 33));
        painter.drawEllipse(middle + QPoint(moment == 0 ? -20 : 20, 0), 60, 60);
        painter.end();
        shots.push_back(shot);
    }
    const motion::Result result = motion::find(shots, 1);
    QVERIFY(!result.found.isNull());
    QCOMPARE(usable(result.found, middle), 255);
    QCOMPARE(usable(result.masks[0], middle), 0);
    QCOMPARE(usable(result.masks[1], middle), 255);
}

void tst_motion::find_ringOrBay_onlyTheRingIsFilled_data()
{
    QTest::addColumn<QPoint>("inside");
    QTest::addColumn<bool>("isFilled");
    QTest::newRow("ring amid the picture") << QPoint(320, 240) << true;
    QTest::newRow("bay at the left border") << QPoint(32, 240) << false;
    QTest::newRow("bay at the right border") << QPoint(608, 240) << false;
    QTest::newRow("bay at the upper border") << QPoint(320, 32) << false;
    QTest::newRow("bay at the lower border") << QPoint(320, 448) << false;
}

/// What moved encloses a place, or together with the border of the picture, behind which nobody
/// knows what is.
void tst_motion::find_ringOrBay_onlyTheRingIsFilled()
{
    QFETCH(QPoint, inside);
    QFETCH(bool, isFilled);
    const QRect hole(inside - QPoint(32, 32), QSize(64, 64));
    const QRegion ring = QRegion(hole.adjusted(-64, -64, 64, 64)) - QRegion(hole);
    const motion::Result result = motion::find({patches({}, 2), patches(ring, 2)}, 1);
    QCOMPARE(usable(result.found, inside - QPoint(64, 64) +
                                      QPoint(inside.x() < 64 ? 128 : 0, inside.y() < 64 ? 128 : 0)),
             255);
    QCOMPARE(usable(result.found, inside), isFilled ? 255 : 0);
}

void tst_motion::find_fixedReference_showsItsMoment()
{
    const std::vector<QImage> shots = movedDisc();
    for (const int reference : {0, 1}) {
        const motion::Result result = motion::find(shots, reference);
        for (const QPoint place : {kLeft, kRight}) {
            QCOMPARE(lowestUsable(result.masks[size_t(reference)], place, 20), 255);
            QCOMPARE(usable(result.masks[size_t(1 - reference)], place), 0);
        }
    }
}

/// The truth is the same scene photographed without movement, at the reference's moment.
void tst_motion::fuse_movedDisc_looksLikeTheStillScene()
{
    const MovingScene scene;
    const QPoint third(150, 60);
    const std::vector<QImage> shots{scene.shot(0.25, kLeft), scene.shot(0.7, kRight),
                                    scene.shot(2.0, third)};
    const QImage result = fused(shots, motion::find(shots, 1).masks);
    const QImage ghostly = fused(shots, {});
    const QImage truth =
        fused({scene.shot(0.25, kRight), scene.shot(0.7, kRight), scene.shot(2.0, kRight)}, {});
    double left = 0.0;
    double ghosts = 0.0;
    for (const QPoint place : {kLeft, kRight, third}) {
        const QRect part(place - QPoint(24, 24), QSize(49, 49));
        left += meanDifference(result, truth, part);
        ghosts += meanDifference(ghostly, truth, part);
    }
    QVERIFY2(left < 0.5 * ghosts, qPrintable(QString("%1 of %2").arg(left).arg(ghosts)));
}

void tst_motion::find_severalThreads_findTheSame()
{
    const std::vector<QImage> shots = movedDisc();
    parallel::setThreadLimit(1);
    const motion::Result one = motion::find(shots);
    for (const int threads : {2, 5}) {
        parallel::setThreadLimit(threads);
        const motion::Result several = motion::find(shots);
        QCOMPARE(several.found, one.found);
        QVERIFY(several.masks == one.masks);
    }
    parallel::setThreadLimit(0);
}

void tst_motion::find_uncoveredPixels_areNoMovement()
{
    const MovingScene scene;
    std::vector<QImage> shots{scene.shot(0.5, kLeft), scene.shot(1.5, kLeft)};
    shots[1] = shots[1].convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < 240; ++y)
        for (int x = 0; x < 60; ++x)
            shots[1].setPixel(x, y, 0);
    QVERIFY(motion::find(shots).found.isNull());
}

void tst_motion::find_16Bits_findsTheSame()
{
    const std::vector<QImage> shots = movedDisc();
    std::vector<QImage> deep;
    for (const QImage &shot : shots)
        deep.push_back(shot.convertToFormat(QImage::Format_RGBX64));
    QCOMPARE(motion::find(deep).found, motion::find(shots).found);
}

void tst_motion::find_tinyShots_areTaken()
{
    for (const QSize size : {QSize(1, 1), QSize(1, 9), QSize(9, 1), QSize(5, 3)}) {
        QImage dark(size, QImage::Format_RGB32);
        QImage bright(size, QImage::Format_RGB32);
        dark.fill(qRgb(40, 40, 40));
        bright.fill(qRgb(140, 140, 140));
        QCOMPARE(motion::find({dark, bright}).status, Status::Done);
    }
}

void tst_motion::find_unfitShots_areRefused()
{
    const QImage shot = MovingScene().shot(1.0, kNone);
    const QImage otherSize = shot.copy(0, 0, 100, 100);
    QCOMPARE(motion::find({}).status, Status::BadShots);
    QCOMPARE(motion::find({shot}).status, Status::BadShots);
    QCOMPARE(motion::find({shot, otherSize}).status, Status::BadShots);
    QCOMPARE(motion::find({shot, QImage()}).status, Status::BadShots);
    QCOMPARE(motion::find({shot, shot}, 2).status, Status::BadShots);
}

void tst_motion::find_cancelled_givesNothing()
{
    const std::vector<QImage> shots = movedDisc();
    std::atomic<bool> cancelled{true};
    QCOMPARE(motion::find(shots, motion::kAutomatic, {&cancelled, {}}).status, Status::Cancelled);
    cancelled = false;
    const auto cancelHalfway = [&](double progress) { cancelled = progress >= 0.5; };
    const motion::Result result =
        motion::find(shots, motion::kAutomatic, {&cancelled, cancelHalfway});
    QCOMPARE(result.status, Status::Cancelled);
    QVERIFY(result.masks.empty());
}

void tst_motion::shrink_anySize_equalsTheMeans()
{
    const QImage scene = MovingScene().shot(1.0, kLeft, 3.0, 5);
    for (const QSize size : {QSize(1, 1), QSize(17, 31), QSize(64, 48), QSize(301, 203)}) {
        for (const int side : {2, 4, 16}) {
            const QImage picture = scene.copy(QRect(QPoint(0, 0), size));
            const motion::SmallShot small = motion::shrink(picture, side);
            for (int y = 0; y < small.height; ++y) {
                for (int x = 0; x < small.width; ++x) {
                    const QRect block =
                        QRect(x * side, y * side, side, side).intersected(picture.rect());
                    int sum = 0;
                    for (int row = block.top(); row <= block.bottom(); ++row)
                        for (int column = block.left(); column <= block.right(); ++column)
                            sum += qGreen(picture.pixel(column, row));
                    const int pixels = block.width() * block.height();
                    QCOMPARE(int(small.levels[1][size_t(y * small.width + x)]),
                             (sum + pixels / 2) / pixels);
                }
            }
        }
    }
}

QTEST_GUILESS_MAIN(tst_motion)
#include "tst_motion.moc"
