#include "parallel_rows.h"
#include "resample.h"
#include "vector_targets.h"

#include <QColorSpace>
#include <QTransform>
#include <QtTest>

#include <random>

using namespace registration;

namespace {

Transform bent(const Matrix &matrix)
{
    Transform transform;
    transform.kind = isWholeShift(matrix) ? Kind::Shift : Kind::Perspective;
    transform.matrix = matrix;
    return transform;
}

const Matrix kHand{1.001, 0.004, 3.3, -0.0041, 0.9995, -2.7, 1e-6, -2e-6, 1};

QImage randomPicture(QSize size, QImage::Format format, unsigned seed = 1)
{
    std::mt19937 random(seed);
    QImage picture(size, format);
    for (int y = 0; y < size.height(); ++y) {
        for (int i = 0; i < picture.bytesPerLine(); ++i)
            picture.scanLine(y)[i] = uchar(random());
    }
    return picture;
}

QByteArray pixelBytes(const QImage &picture, int x, int y)
{
    const int bytes = picture.depth() / 8;
    const auto *row = reinterpret_cast<const char *>(picture.constScanLine(y));
    return QByteArray(row + x * bytes, bytes);
}

/// As detailed as photographs are: noise, smoothed twice.
QImage detailedPicture(QSize size)
{
    QImage picture = randomPicture(size, QImage::Format_Grayscale8);
    for (int round = 0; round < 2; ++round) {
        for (int y = 0; y + 1 < size.height(); ++y) {
            for (int x = 0; x + 1 < size.width(); ++x) {
                const auto at = [&](int dx, int dy) { return picture.scanLine(y + dy)[x + dx]; };
                picture.scanLine(y)[x] = uchar((at(0, 0) + at(1, 0) + at(0, 1) + at(1, 1)) / 4);
            }
        }
    }
    return picture.convertToFormat(QImage::Format_RGB32);
}

double meanSquaredGradient(const QImage &picture, const QRect &area)
{
    double sum = 0;
    for (int y = area.top(); y < area.bottom(); ++y) {
        for (int x = area.left(); x < area.right(); ++x) {
            const int here = qGreen(picture.pixel(x, y));
            sum += std::pow(qGreen(picture.pixel(x + 1, y)) - here, 2) +
                   std::pow(qGreen(picture.pixel(x, y + 1)) - here, 2);
        }
    }
    return sum;
}

} // namespace

class tst_resample : public QObject
{
    Q_OBJECT

private slots:
    void noMotion_givesTheShotItself();
    void wholeShift_copiesPixels_data();
    void wholeShift_copiesPixels();
    void wholeShift_beyondThePicture_coversNothing();
    void constantPicture_staysConstant();
    void border_isNotCovered();
    void borderPixels_areMadeAsIfTheyWentOn();
    void halfPixel_keepsDetail();
    void clippedLight_hasNoRing();
    void deepPicture_keepsItsDepth();
    void deepAndShallow_agree();
    void transparentPixels_areNotCovered();
    void colourSpaceAndResolution_areKept();
    void oddFormats_areRead();
    void tinyPictures_areSafe();
    void otherSize_isCutOrPadded();
    void threadsAndTargets_giveEqualPixels();
    void anyMotion_isNearTheTruth_data();
    void anyMotion_isNearTheTruth();
    void cancelled_givesNothing();
    void commonArea_ofShifts_isTheOverlap();
    void commonArea_ofTurns_isCoveredByAll();
    void commonArea_withoutAny_isEmpty();
};

void tst_resample::noMotion_givesTheShotItself()
{
    const QImage shot = randomPicture({33, 21}, QImage::Format_RGB888);
    Transform transform;
    for (Kind kind : {Kind::Identity, Kind::Unaligned}) {
        transform.kind = kind;
        QCOMPARE(resample(shot, transform, shot.size()).cacheKey(), shot.cacheKey());
    }
}

void tst_resample::wholeShift_copiesPixels_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("8 bits") << int(QImage::Format_RGB32);
    QTest::newRow("16 bits") << int(QImage::Format_RGBX64);
}

void tst_resample::wholeShift_copiesPixels()
{
    QFETCH(int, format);
    const QImage words = randomPicture({40, 30}, QImage::Format_RGB888);
    const QImage shot = words.convertToFormat(QImage::Format(format));
    const QImage moved = resample(shot, bent(shiftMatrix(5, -3)), shot.size());
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 40; ++x) {
            const bool isCovered = x >= 5 && y < 27;
            QCOMPARE(qAlpha(moved.pixel(x, y)), isCovered ? 255 : 0);
            if (isCovered)
                QCOMPARE(pixelBytes(moved, x, y), pixelBytes(shot, x - 5, y + 3));
        }
    }
}

void tst_resample::wholeShift_beyondThePicture_coversNothing()
{
    const QImage shot = randomPicture({10, 10}, QImage::Format_RGB32);
    for (const Matrix &far :
         {shiftMatrix(10, 0), shiftMatrix(0, -500), shiftMatrix(-30000, 30000)}) {
        const QImage moved = resample(shot, bent(far), shot.size());
        QCOMPARE(moved, [&] {
            QImage none(moved.size(), moved.format());
            none.fill(0);
            return none;
        }());
    }
}

void tst_resample::constantPicture_staysConstant()
{
    QImage shot(200, 150, QImage::Format_RGB32);
    shot.fill(qRgb(255, 77, 1));
    const QImage moved = resample(shot, bent(kHand), shot.size());
    for (int y = 0; y < 150; ++y) {
        for (int x = 0; x < 200; ++x)
            QVERIFY(moved.pixel(x, y) == 0 || moved.pixel(x, y) == qRgb(255, 77, 1));
    }
    QCOMPARE(moved.pixel(100, 75), qRgb(255, 77, 1));
}

void tst_resample::border_isNotCovered()
{
    QImage shot(20, 20, QImage::Format_RGB32);
    shot.fill(Qt::gray);
    const QImage moved = resample(shot, bent(shiftMatrix(2.5, 0.25)), shot.size());
    QCOMPARE(qAlpha(moved.pixel(2, 10)), 0); // half of it beside the shot
    QCOMPARE(qAlpha(moved.pixel(3, 10)), 255);
    QCOMPARE(qAlpha(moved.pixel(10, 0)), 0);
    QCOMPARE(qAlpha(moved.pixel(10, 1)), 255);
    QCOMPARE(qAlpha(moved.pixel(19, 19)), 255);
    const QImage back = resample(shot, bent(shiftMatrix(-2.5, -0.25)), shot.size());
    QCOMPARE(qAlpha(back.pixel(17, 10)), 0);
    QCOMPARE(qAlpha(back.pixel(16, 10)), 255);
    QCOMPARE(qAlpha(back.pixel(10, 19)), 0);
    QCOMPARE(qAlpha(back.pixel(10, 18)), 255);
}

/// With its outermost pixels four times over on all sides.
static QImage goingOn(const QImage &picture)
{
    constexpr int kMore = 4;
    QImage larger(picture.size() + QSize(2 * kMore, 2 * kMore), picture.format());
    for (int y = 0; y < larger.height(); ++y) {
        for (int x = 0; x < larger.width(); ++x)
            larger.setPixelColor(
                x, y,
                picture.pixelColor(std::clamp(x - kMore, 0, picture.width() - 1),
                                   std::clamp(y - kMore, 0, picture.height() - 1)));
    }
    return larger;
}

void tst_resample::borderPixels_areMadeAsIfTheyWentOn()
{
    for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_RGBX64}) {
        const QImage shot = randomPicture({23, 19}, QImage::Format_RGB32).convertToFormat(format);
        const Transform motion = bent(shiftMatrix(0.4, -0.7));
        const QImage moved = resample(shot, motion, shot.size());
        const QImage larger = goingOn(shot);
        const QImage expected =
            resample(larger, motion, larger.size()).copy(QRect(QPoint(4, 4), shot.size()));
        const QRect covered(1, 0, 22, 18);
        QCOMPARE(moved.copy(covered), expected.copy(covered));
    }
}

void tst_resample::halfPixel_keepsDetail()
{
    const QImage shot = detailedPicture({256, 256});
    const QRect area(20, 20, 216, 216);
    const double before = meanSquaredGradient(shot, area);
    for (double part : {0.25, 0.5}) {
        const QImage moved = resample(shot, bent(shiftMatrix(part, part)), shot.size());
        const double share = meanSquaredGradient(moved, area) / before;
        QVERIFY2(share > 0.95 && share < 1.1, qPrintable(QString::number(share)));
    }
}

void tst_resample::clippedLight_hasNoRing()
{
    QImage shot(60, 60, QImage::Format_RGB32);
    shot.fill(qRgb(40, 40, 40));
    for (int y = 25; y < 35; ++y) {
        for (int x = 25; x < 35; ++x)
            shot.setPixel(x, y, qRgb(255, 255, 255));
    }
    const QImage moved = resample(shot, bent(shiftMatrix(0.4, 0.6)), shot.size());
    for (int y = 5; y < 55; ++y) {
        for (int x = 5; x < 55; ++x) {
            QVERIFY(qRed(moved.pixel(x, y)) >= 40);
            const bool isAway = x < 23 || x > 37 || y < 23 || y > 37;
            QVERIFY(!isAway || qRed(moved.pixel(x, y)) == 40);
        }
    }
}

void tst_resample::deepPicture_keepsItsDepth()
{
    QImage shot(64, 64, QImage::Format_RGBX64);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x)
            reinterpret_cast<QRgba64 *>(shot.scanLine(y))[x] =
                QRgba64::fromRgba64(quint16(1000 + 10 * x), quint16(5 * y), 3, 0xFFFF);
    }
    const QImage moved = resample(shot, bent(shiftMatrix(0.5, 0.5)), shot.size());
    QCOMPARE(moved.format(), QImage::Format_RGBA64_Premultiplied);
    const QRgba64 pixel = reinterpret_cast<const QRgba64 *>(moved.constScanLine(30))[30];
    QCOMPARE(int(pixel.red()), 1000 + 295);
    QVERIFY(std::abs(int(pixel.green()) - 148) <= 1);
    QCOMPARE(int(pixel.blue()), 3);
}

void tst_resample::deepAndShallow_agree()
{
    const QImage shot = detailedPicture({120, 90});
    const QImage shallow = resample(shot, bent(kHand), shot.size());
    const QImage deep =
        resample(shot.convertToFormat(QImage::Format_RGBX64), bent(kHand), shot.size())
            .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < 90; ++y) {
        for (int x = 0; x < 120; ++x) {
            QCOMPARE(qAlpha(deep.pixel(x, y)), qAlpha(shallow.pixel(x, y)));
            QVERIFY(std::abs(qGreen(deep.pixel(x, y)) - qGreen(shallow.pixel(x, y))) <= 1);
        }
    }
}

void tst_resample::transparentPixels_areNotCovered()
{
    QImage shot(40, 40, QImage::Format_ARGB32);
    shot.fill(qRgba(90, 90, 90, 255));
    shot.setPixel(20, 20, 0);
    for (const Matrix &map : {shiftMatrix(1, 0), shiftMatrix(1.25, 0)}) {
        const QImage moved = resample(shot, bent(map), shot.size());
        QCOMPARE(moved.pixel(21, 20), 0U);
        QCOMPARE(moved.pixel(30, 30), qRgb(90, 90, 90));
    }
}

void tst_resample::colourSpaceAndResolution_areKept()
{
    QImage shot = randomPicture({30, 30}, QImage::Format_RGB32);
    shot.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    shot.setDotsPerMeterX(11811);
    const QImage moved = resample(shot, bent(kHand), shot.size());
    QCOMPARE(moved.colorSpace(), shot.colorSpace());
    QCOMPARE(moved.dotsPerMeterX(), 11811);
}

void tst_resample::oddFormats_areRead()
{
    for (QImage::Format format : {QImage::Format_Grayscale8, QImage::Format_RGB888,
                                  QImage::Format_Grayscale16, QImage::Format_RGB30}) {
        QImage shot(50, 50, format);
        shot.fill(Qt::white);
        const QImage moved = resample(shot, bent(kHand), shot.size());
        QCOMPARE(QColor(moved.pixel(25, 25)), QColor(Qt::white));
    }
}

void tst_resample::tinyPictures_areSafe()
{
    for (QSize size : {QSize(1, 1), QSize(1, 9), QSize(5, 7)}) {
        const QImage shot = randomPicture(size, QImage::Format_RGB32);
        QCOMPARE(resample(shot, bent(kHand), size).size(), size);
        QCOMPARE(resample(shot, bent(shiftMatrix(0.5, 0.5)), QSize(3, 3)).size(), QSize(3, 3));
    }
    QVERIFY(resample(QImage(), bent(kHand), QSize(3, 3)).isNull());
    QVERIFY(resample(randomPicture({2, 2}, QImage::Format_RGB32), bent(kHand), QSize()).isNull());
}

void tst_resample::otherSize_isCutOrPadded()
{
    const QImage shot = randomPicture({20, 10}, QImage::Format_RGB32);
    Transform still;
    still.kind = Kind::Identity;
    const QImage result = resample(shot, still, QSize(12, 16));
    QCOMPARE(result.pixel(11, 9), shot.pixel(11, 9) | 0xFF000000U);
    QCOMPARE(result.pixel(11, 10), 0U);
}

void tst_resample::threadsAndTargets_giveEqualPixels()
{
    for (QImage::Format format : {QImage::Format_RGB32, QImage::Format_RGBX64}) {
        const QImage shot = randomPicture({401, 307}, format);
        const QImage expected = resample(shot, bent(kHand), shot.size());
        for (int threads : {1, 2, 7}) {
            parallel::setThreadLimit(threads);
            QCOMPARE(resample(shot, bent(kHand), shot.size()), expected);
        }
        parallel::setThreadLimit(0);
        for (int64_t target : vectorTargets::all()) {
            const vectorTargets::Forced forced(target);
            QVERIFY2(resample(shot, bent(kHand), shot.size()) == expected, hwy::TargetName(target));
        }
    }
}

void tst_resample::anyMotion_isNearTheTruth_data()
{
    QTest::addColumn<QTransform>("motion");
    const auto turned = [](double slope) {
        return QTransform(1, slope, 0, -slope, 1, 0, 4.3, -2.6, 1);
    };
    QTest::newRow("of a hand") << QTransform(1.001, -0.0041, 1e-6, 0.004, 0.9995, -2e-6, 3.3, -2.7,
                                             1);
    QTest::newRow("half a pixel") << QTransform::fromTranslate(0.5, 0.5);
    QTest::newRow("just level") << turned(0.062);
    QTest::newRow("just level, the other way") << turned(-0.062);
    QTest::newRow("hardly steep") << turned(0.063);
    QTest::newRow("steep") << turned(0.3);
    QTest::newRow("upright") << QTransform(0, 1, -1, 0, 300, 0);
    QTest::newRow("tilted") << QTransform(1.01, 0.01, 1e-4, -0.02, 0.98, -5e-5, 2, 3, 1);
}

/// A soft pattern, 0..1, at any place.
static double pattern(QPointF at)
{
    return 0.5 + 0.2 * std::sin(0.4 * at.x() + 0.2 * at.y()) +
           0.2 * std::cos(0.15 * at.x() - 0.45 * at.y());
}

void tst_resample::anyMotion_isNearTheTruth()
{
    QFETCH(const QTransform, motion);
    const QSize size(320, 280);
    QImage shot(size, QImage::Format_RGBX64);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const auto level = quint16(std::lround(65535 * pattern(QPointF(x, y))));
            reinterpret_cast<QRgba64 *>(shot.scanLine(y))[x] =
                QRgba64::fromRgba64(level, level, level, 0xFFFF);
        }
    }
    const Matrix matrix{motion.m11(), motion.m21(), motion.m31(), motion.m12(), motion.m22(),
                        motion.m32(), motion.m13(), motion.m23(), motion.m33()};
    const QTransform toShot = motion.inverted();
    for (const QImage::Format format : {QImage::Format_RGBX64, QImage::Format_RGB32}) {
        const QImage moved = resample(shot.convertToFormat(format), bent(matrix), size)
                                 .convertToFormat(QImage::Format_RGBA64);
        double worst = 0;
        int count = 0;
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                const QPointF at = toShot.map(QPointF(x, y));
                const QRgba64 pixel = reinterpret_cast<const QRgba64 *>(moved.constScanLine(y))[x];
                const bool isInner = QRectF(3, 3, size.width() - 7, size.height() - 7).contains(at);
                if (!isInner)
                    continue;
                QCOMPARE(int(pixel.alpha()), 0xFFFF);
                worst = std::max(worst, std::abs(pixel.green() / 65535.0 - pattern(at)));
                ++count;
            }
        }
        qInfo("worst %.4f of %d", worst, count);
        QVERIFY(count > 40000);
        QVERIFY(worst < 0.012); // a tenth of a pixel is .018
    }
}

void tst_resample::cancelled_givesNothing()
{
    const std::atomic<bool> isCancelled{true};
    const QImage shot = randomPicture({64, 64}, QImage::Format_RGB32);
    QVERIFY(resample(shot, bent(kHand), shot.size(), &isCancelled).isNull());
}

void tst_resample::commonArea_ofShifts_isTheOverlap()
{
    const QSize size(400, 300);
    const std::vector<Transform> transforms = {bent(identityMatrix()), bent(shiftMatrix(30, -12)),
                                               bent(shiftMatrix(-7, 5))};
    QCOMPARE(commonArea(transforms, {size, size, size}, size), QRect(30, 5, 363, 283));
    QCOMPARE(commonArea({bent(identityMatrix())}, {size}, size), QRect(QPoint(0, 0), size));
}

void tst_resample::commonArea_ofTurns_isCoveredByAll()
{
    const QSize size(400, 300);
    const QRect area = commonArea({bent(kHand)}, {size}, size);
    QImage shot(size, QImage::Format_RGB32);
    shot.fill(Qt::red);
    const QImage moved = resample(shot, bent(kHand), size);
    QVERIFY(area.width() > 380 && area.height() > 280);
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            QCOMPARE(qAlpha(moved.pixel(x, y)), 255);
    }
}

void tst_resample::commonArea_withoutAny_isEmpty()
{
    const QSize size(400, 300);
    QVERIFY(commonArea({bent(shiftMatrix(500, 0))}, {size}, size).isEmpty());
}

QTEST_GUILESS_MAIN(tst_resample)
#include "tst_resample.moc"
