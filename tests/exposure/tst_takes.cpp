#include "set_merge.h"

#include <QColorSpace>
#include <QPainter>
#include <QtTest>

#include <algorithm>
#include <random>

using exposure::Error;
using exposure::Method;
using exposure::Outcome;

namespace {

const QSize kSize(331, 253);
const QRect kPart(90, 70, 100, 80);
const QColor kYellow(225, 215, 20);

QImage scene(QSize size)
{
    std::mt19937 random(5);
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(QColor(120, 110, 100));
    QPainter painter(&picture);
    for (int i = 0; i < 900; ++i)
        painter.fillRect(
            int(random() % unsigned(size.width())), int(random() % unsigned(size.height())),
            int(random() % 24) + 2, int(random() % 24) + 2,
            QColor(int(random() % 200) + 20, int(random() % 200) + 20, int(random() % 200) + 20));
    return picture;
}

QImage exposed(QImage shot, double factor)
{
    for (int y = 0; y < shot.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(shot.scanLine(y));
        for (int x = 0; x < shot.width(); ++x)
            row[x] = qRgb(std::min(255, int(qRed(row[x]) * factor)),
                          std::min(255, int(qGreen(row[x]) * factor)),
                          std::min(255, int(qBlue(row[x]) * factor)));
    }
    return shot;
}

/// A dark, a middle and a bright shot; each stands elsewhere by a few pixels. Only the second one
/// has a yellow thing at `thing`.
QList<QImage> bracket(bool deep = false, QPoint second = {}, QPoint third = {},
                      const QRect &thing = {})
{
    const QImage large = scene(kSize + QSize(80, 80));
    const auto part = [&large](QPoint by) { return large.copy(QRect(QPoint(40, 40) + by, kSize)); };
    QList<QImage> shots{exposed(part({}), 0.5), part(second), exposed(part(third), 1.8)};
    QPainter(&shots[1]).fillRect(thing.translated(-second), kYellow);
    for (QImage &shot : shots) {
        shot.setColorSpace(QColorSpace(QColorSpace::SRgb));
        if (deep)
            shot = shot.convertToFormat(QImage::Format_RGBX64);
    }
    return shots;
}

QImage maskOf(QSize size, const QRect &part)
{
    QImage mask(size, QImage::Format_Grayscale8);
    mask.fill(0);
    for (int y = part.top(); y <= part.bottom(); ++y)
        std::fill_n(mask.scanLine(y) + part.left(), part.width(), uchar(200));
    return mask;
}

exposure::Options still(exposure::Ghosts ghosts)
{
    exposure::Options options;
    options.alignment = exposure::Alignment::None;
    options.reference = 0;
    options.ghosts = ghosts;
    return options;
}

/// Between the channels of two pictures of light.
double largestRatio(const QImage &one, const QImage &other)
{
    double largest = 1.0;
    for (int y = 0; y < one.height(); ++y) {
        const auto *a = reinterpret_cast<const float *>(one.constScanLine(y));
        const auto *b = reinterpret_cast<const float *>(other.constScanLine(y));
        for (int i = 0; i < 4 * one.width(); ++i)
            largest = std::max({largest, double(a[i] / b[i]), double(b[i] / a[i])});
    }
    return largest;
}

/// On average, red minus blue. Of the scene without the thing it is next to nothing.
int yellowness(const QImage &picture, const QRect &part)
{
    int sum = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            sum += qRed(picture.pixel(x, y)) - qBlue(picture.pixel(x, y));
    return sum / (part.width() * part.height());
}

} // namespace

class TestTakes : public QObject
{
    Q_OBJECT

private slots:
    void noOrEmptyTakes_changeNoByte_data();
    void noOrEmptyTakes_changeNoByte();
    void takenPart_hasTheShotsThing_data();
    void takenPart_hasTheShotsThing();
    void takenPart_ofLight_isTheShotsAlone_data();
    void takenPart_ofLight_isTheShotsAlone();
    void take_winsOverWhatWasFound();
    void take_ofAlignedAndCroppedShots_liesOnTheReference();
    void take_whereTheShotDoesNotCover_leavesTheOthers();
    void take_ofTinyShots_isTaken_data();
    void take_ofTinyShots_isTaken();
    void take_ofMean_isIgnored();
    void thing_comesFromTheNamedShot();
    void thing_ofCroppedShots_isThatOfTheReference();
    void thing_whereNothingMoved_changesNoByte();
    void wrongTakes_areErrors();
    void cancelled_whileTaking_givesNoPicture();
};

void TestTakes::noOrEmptyTakes_changeNoByte_data()
{
    QTest::addColumn<Method>("method");
    QTest::addColumn<bool>("deep");
    QTest::newRow("fusion, 8 bits") << Method::Fusion << false;
    QTest::newRow("fusion, 16 bits") << Method::Fusion << true;
    QTest::newRow("radiance, 8 bits") << Method::Radiance << false;
    QTest::newRow("radiance, 16 bits") << Method::Radiance << true;
}

void TestTakes::noOrEmptyTakes_changeNoByte()
{
    QFETCH(Method, method);
    QFETCH(bool, deep);
    for (const auto ghosts : {exposure::Ghosts::Keep, exposure::Ghosts::Remove}) {
        exposure::Options options = still(ghosts);
        const QList<QImage> shots = bracket(deep, {}, {}, QRect(200, 120, 60, 60));
        const Outcome without = exposure::mergeSet(method, shots, options);
        QCOMPARE(without.error, Error::None);
        options.takes = {{1, maskOf(kSize, {})}, {0, maskOf(kSize, {})}};
        const Outcome with = exposure::mergeSet(method, shots, options);
        QCOMPARE(with.picture, without.picture);
        QCOMPARE(with.ghosts, without.ghosts);
        QCOMPARE(with.bounds, without.bounds);
    }
}

void TestTakes::takenPart_hasTheShotsThing_data()
{
    QTest::addColumn<bool>("deep");
    QTest::addColumn<exposure::Ghosts>("ghosts");
    QTest::newRow("8 bits, ghosts kept") << false << exposure::Ghosts::Keep;
    QTest::newRow("8 bits, ghosts removed") << false << exposure::Ghosts::Remove;
    QTest::newRow("16 bits, ghosts kept") << true << exposure::Ghosts::Keep;
    QTest::newRow("16 bits, ghosts removed") << true << exposure::Ghosts::Remove;
}

/// With the thing as it is where it is taken, and without it where another shot is.
void TestTakes::takenPart_hasTheShotsThing()
{
    QFETCH(bool, deep);
    QFETCH(exposure::Ghosts, ghosts);
    const QRect thing(120, 90, 40, 40);
    const QList<QImage> shots = bracket(deep, {}, {}, thing);
    exposure::Options options = still(ghosts);
    options.takes = {{1, maskOf(kSize, kPart)}};
    const Outcome with = exposure::merge(shots, options);
    options.takes = {{0, maskOf(kSize, kPart)}};
    const Outcome without = exposure::merge(shots, options);
    const Outcome neverThere = exposure::merge(bracket(deep), options);
    QCOMPARE(with.picture.depth(), deep ? 64 : 32);
    const int whole = yellowness(with.picture, thing);
    QVERIFY2(whole > 150, qPrintable(QString::number(whole)));
    const int left = yellowness(without.picture, thing) - yellowness(neverThere.picture, thing);
    QVERIFY2(std::abs(left) < 10, qPrintable(QString::number(left)));
}

void TestTakes::takenPart_ofLight_isTheShotsAlone_data()
{
    QTest::addColumn<bool>("deep");
    QTest::newRow("8 bits") << false;
    QTest::newRow("16 bits") << true;
}

/// Light has no pyramid: in the part it is what the shot by itself gives.
void TestTakes::takenPart_ofLight_isTheShotsAlone()
{
    QFETCH(bool, deep);
    QList<QImage> shots = bracket(deep, {}, {}, QRect(120, 90, 40, 40));
    QPainter(&shots[1]).fillRect(QRect(250, 90, 40, 40), kYellow);
    exposure::Options options = still(exposure::Ghosts::Keep);
    options.product = exposure::Product::Light;
    options.curve = radiance::Curve::OfProfile;
    options.exposures = {0.25, 1.0, 3.0};
    const auto lightWith = [&](const std::vector<motion::Take> &takes) {
        options.takes = takes;
        return exposure::merge(shots, options).picture;
    };
    const QImage whole = lightWith({{1, maskOf(kSize, QRect(QPoint(), kSize))}});
    const QImage part = lightWith({{1, maskOf(kSize, kPart)}});
    const QImage none = lightWith({});
    // The fit of the exposures sees other pixels, too.
    QVERIFY(largestRatio(part.copy(kPart), whole.copy(kPart)) < 1.1);
    QVERIFY(largestRatio(none.copy(kPart), whole.copy(kPart)) > 4);
    const QRect beyond(kPart.right() + 20, 0, kSize.width() - kPart.right() - 20, kSize.height());
    QVERIFY(largestRatio(part.copy(beyond), none.copy(beyond)) < 1.1);
    QVERIFY(largestRatio(whole.copy(beyond), none.copy(beyond)) > 2);
}

void TestTakes::take_winsOverWhatWasFound()
{
    const QRect thing(120, 90, 60, 60);
    const QList<QImage> shots = bracket(false, {}, {}, thing);
    exposure::Options options = still(exposure::Ghosts::Remove);
    options.ghostReference = 0;
    const Outcome found = exposure::merge(shots, options);
    QVERIFY(found.report.hasGhosts);
    options.takes = {{1, maskOf(kSize, thing.adjusted(-10, -10, 10, 10))}};
    const Outcome taken = exposure::merge(shots, options);
    QCOMPARE(taken.ghosts, found.ghosts);
    QVERIFY(yellowness(found.picture, thing) < 60);
    QVERIFY(yellowness(taken.picture, thing) > 150);
}

void TestTakes::take_ofAlignedAndCroppedShots_liesOnTheReference()
{
    const QRect thing(120, 90, 40, 40);
    const QList<QImage> shots = bracket(false, {3, -2}, {35, 1}, thing);
    for (const auto alignment : {exposure::Alignment::Shift, exposure::Alignment::Perspective}) {
        exposure::Options options = still(exposure::Ghosts::Keep);
        options.alignment = alignment;
        options.takes = {{1, maskOf(kSize, thing)}};
        const Outcome whole = exposure::merge(shots, options);
        options.crop = true;
        const Outcome cropped = exposure::merge(shots, options);
        const QPoint start = cropped.report.area.topLeft();
        QVERIFY(!start.isNull());
        QVERIFY(cropped.picture.size() != kSize);
        const QRect inner = thing.adjusted(2, 2, -2, -2);
        QVERIFY(yellowness(whole.picture, inner) > 150);
        QVERIFY(yellowness(cropped.picture, inner.translated(-start)) > 150);
        const QRect beside = QRect(thing.left() - 8, thing.top(), 6, thing.height());
        QVERIFY(yellowness(cropped.picture, beside.translated(-start)) < 100);
    }
}

void TestTakes::take_whereTheShotDoesNotCover_leavesTheOthers()
{
    const QRect uncovered(0, 0, 30, kSize.height());
    QList<QImage> shots = bracket(false, {}, {}, QRect(120, 90, 40, 40));
    shots[1] = shots[1].convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < kSize.height(); ++y)
        std::fill_n(reinterpret_cast<QRgb *>(shots[1].scanLine(y)), uncovered.width(), 0U);
    exposure::Options options = still(exposure::Ghosts::Keep);
    options.product = exposure::Product::Light;
    options.curve = radiance::Curve::OfProfile;
    options.exposures = {0.25, 1.0, 3.0};
    const Outcome without = exposure::merge(shots, options);
    options.takes = {{1, maskOf(kSize, QRect(QPoint(), kSize))}};
    const Outcome taken = exposure::merge(shots, options);
    QCOMPARE(taken.error, Error::None);
    const QRect covered(60, 0, 200, kSize.height());
    QVERIFY(largestRatio(taken.picture.copy(covered), without.picture.copy(covered)) > 4);
}

void TestTakes::take_ofTinyShots_isTaken_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize size : {QSize(1, 1), QSize(1, 7), QSize(13, 1), QSize(3, 2), QSize(17, 19)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void TestTakes::take_ofTinyShots_isTaken()
{
    QFETCH(QSize, size);
    for (const bool deep : {false, true}) {
        QList<QImage> shots;
        for (const QColor colour : {QColor(60, 60, 60), QColor(200, 40, 40), QColor(90, 90, 90)}) {
            shots += QImage(size, deep ? QImage::Format_RGBX64 : QImage::Format_RGB32);
            shots.last().fill(colour);
        }
        exposure::Options options = still(exposure::Ghosts::Remove);
        options.takes = {{1, maskOf(size, QRect(QPoint(), size))}};
        const Outcome outcome = exposure::merge(shots, options);
        QCOMPARE(outcome.error, Error::None);
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x)
                QVERIFY(std::abs(qRed(outcome.picture.pixel(x, y)) - 200) <= 1);
    }
}

void TestTakes::take_ofMean_isIgnored()
{
    exposure::Options options = still(exposure::Ghosts::Keep);
    const QImage without = exposure::mergeSet(Method::Mean, bracket(), options).picture;
    options.takes = {{1, maskOf(kSize, kPart)}};
    QCOMPARE(exposure::mergeSet(Method::Mean, bracket(), options).picture, without);
}

/// Of two things each comes from its own shot, though all were to come from the first.
void TestTakes::thing_comesFromTheNamedShot()
{
    const QRect left(40, 90, 50, 50);
    const QRect right(230, 90, 50, 50);
    QList<QImage> shots = bracket(false, {}, {}, left);
    QPainter(&shots[1]).fillRect(right, kYellow);
    exposure::Options options = still(exposure::Ghosts::Remove);
    options.ghostReference = 0;
    const QImage neither = exposure::merge(shots, options).picture;
    options.things = {{0, right.center()}, {1, right.center()}};
    const QImage one = exposure::merge(shots, options).picture;
    QVERIFY(yellowness(one, right) > 150);
    QVERIFY(yellowness(neither, right) < 40);
    QVERIFY(std::abs(yellowness(one, left) - yellowness(neither, left)) < 10);
}

/// A place at its right edge: beside it where the crop were forgotten.
void TestTakes::thing_ofCroppedShots_isThatOfTheReference()
{
    const QRect thing(120, 90, 50, 50);
    exposure::Options options = still(exposure::Ghosts::Remove);
    options.ghostReference = 0;
    options.alignment = exposure::Alignment::Perspective;
    options.crop = true;
    options.things = {{1, {thing.right() - 5, thing.center().y()}}};
    const Outcome outcome = exposure::merge(bracket(false, {}, {35, 0}, thing), options);
    QCOMPARE(outcome.error, Error::None);
    const QPoint start = outcome.report.area.topLeft();
    QCOMPARE(start, QPoint(35, 0));
    QVERIFY(yellowness(outcome.picture, thing.translated(-start)) > 150);
}

void TestTakes::thing_whereNothingMoved_changesNoByte()
{
    const QList<QImage> shots = bracket(false, {}, {}, QRect(120, 90, 50, 50));
    exposure::Options options = still(exposure::Ghosts::Remove);
    const QImage without = exposure::merge(shots, options).picture;
    options.things = {{1, {5, 5}},
                      {1, {-1, 2}},
                      {1, {2, -1}},
                      {1, {kSize.width(), 100}},
                      {2, {100, kSize.height() + 5000}}};
    QCOMPARE(exposure::merge(shots, options).picture, without);
}

void TestTakes::wrongTakes_areErrors()
{
    const auto errorWith = [](const std::vector<motion::Take> &takes,
                              const std::vector<motion::ThingTake> &things) {
        exposure::Options options = still(exposure::Ghosts::Remove);
        options.takes = takes;
        options.things = things;
        return exposure::merge(bracket(), options).error;
    };
    const QImage mask = maskOf(kSize, kPart);
    QCOMPARE(errorWith({{3, mask}}, {}), Error::NoSuchShot);
    QCOMPARE(errorWith({{-1, mask}}, {}), Error::NoSuchShot);
    QCOMPARE(errorWith({}, {{3, {1, 1}}}), Error::NoSuchShot);
    QCOMPARE(errorWith({}, {{-1, {1, 1}}}), Error::NoSuchShot);
    QCOMPARE(errorWith({{1, mask}, {1, mask.copy(0, 0, 30, 30)}}, {}), Error::OtherMaskSize);
    QCOMPARE(errorWith({{1, QImage()}}, {}), Error::OtherMaskSize);
    QCOMPARE(errorWith({{2, mask}}, {{2, {1, 1}}}), Error::None);
}

void TestTakes::cancelled_whileTaking_givesNoPicture()
{
    std::atomic<bool> cancelled = false;
    exposure::Control control;
    control.cancelled = &cancelled;
    control.progress = [&cancelled](exposure::Step step, double) {
        cancelled = cancelled || step == exposure::Step::Resample;
    };
    exposure::Options options = still(exposure::Ghosts::Keep);
    options.takes = {{1, maskOf(kSize, kPart)}};
    const Outcome outcome = exposure::merge(bracket(), options, control);
    QCOMPARE(outcome.error, Error::Cancelled);
    QVERIFY(outcome.picture.isNull());
}

QTEST_GUILESS_MAIN(TestTakes)
#include "tst_takes.moc"
