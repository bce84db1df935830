#include "Adjustment.h"

#include "parallel_rows.h"

#include <QRgba64>
#include <QtTest>

#include <cmath>
#include <random>

namespace {

QImage noise(QSize size, QImage::Format format)
{
    std::mt19937 random(7);
    QImage picture(size, QImage::Format_RGBX64);
    for (int y = 0; y < size.height(); ++y) {
        auto *row = reinterpret_cast<QRgba64 *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            row[x] = qRgba64(quint16(random()), quint16(random()), quint16(random()), 0xFFFF);
    }
    return picture.convertToFormat(format);
}

/// Every grey, darkest first.
QImage ramp()
{
    QImage picture(256, 1, QImage::Format_RGB32);
    for (int x = 0; x < 256; ++x)
        picture.setPixel(x, 0, qRgb(x, x, x));
    return picture;
}

QImage adjusted(QImage picture, const exposure::Adjustment &adjustment)
{
    exposure::adjust(picture, adjustment);
    return picture;
}

double linear(int level)
{
    const double value = level / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

} // namespace

class TestAdjustment : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { parallel::setThreadLimit(0); }

    void neutral_leavesThePictureAndItsMemory()
    {
        const QImage picture = noise({7, 5}, QImage::Format_RGB32);
        QImage same = picture;
        exposure::adjust(same, {});
        QCOMPARE(same.constBits(), picture.constBits());
    }

    void exposure_oneStop_doublesTheLight()
    {
        const QImage bright = adjusted(ramp(), {1.0, 0.0, 1.0});
        for (int level = 20; level < 180; ++level) {
            const double ratio = linear(qRed(bright.pixel(level, 0))) / linear(level);
            QVERIFY2(std::abs(ratio - 2.0) < 0.08, qPrintable(QString::number(ratio)));
        }
        QCOMPARE(bright.pixel(255, 0), qRgb(255, 255, 255));
        QCOMPARE(bright.pixel(0, 0), qRgb(0, 0, 0));
    }

    void contrast_leavesBlackWhiteAndTheMiddle_data()
    {
        QTest::addColumn<double>("contrast");
        QTest::newRow("hard") << 0.8;
        QTest::newRow("flat") << -0.8;
    }

    void contrast_leavesBlackWhiteAndTheMiddle()
    {
        QFETCH(const double, contrast);
        const QImage curve = adjusted(ramp(), {0.0, contrast, 1.0});
        QCOMPARE(qRed(curve.pixel(0, 0)), 0);
        QCOMPARE(qRed(curve.pixel(255, 0)), 255);
        QVERIFY(std::abs(qRed(curve.pixel(128, 0)) - 128) <= 2);
        const int quarter = qRed(curve.pixel(64, 0));
        QVERIFY(contrast > 0 ? quarter < 50 : quarter > 78);
        for (int x = 1; x < 256; ++x)
            QVERIFY(qRed(curve.pixel(x, 0)) >= qRed(curve.pixel(x - 1, 0)));
    }

    void saturation_none_givesGreys()
    {
        const QImage grey = adjusted(noise({31, 17}, QImage::Format_RGB32), {0.0, 0.0, 0.0});
        for (int y = 0; y < grey.height(); ++y) {
            for (int x = 0; x < grey.width(); ++x)
                QVERIFY(qIsGray(grey.pixel(x, y)));
        }
    }

    void saturation_changesNoGrey() { QCOMPARE(adjusted(ramp(), {0.0, 0.0, 2.5}), ramp()); }

    void deepPicture_isAdjustedLikeAnEightBitOne()
    {
        const exposure::Adjustment adjustment{0.7, 0.3, 1.4};
        const QImage picture = noise({29, 13}, QImage::Format_RGB32);
        const QImage expected = adjusted(picture, adjustment);
        const QImage deep = adjusted(picture.convertToFormat(QImage::Format_RGBX64), adjustment);
        QCOMPARE(deep.format(), QImage::Format_RGBX64);
        const QImage back = deep.convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                // The 8-bit curve rounds before it mixes.
                QVERIFY(std::abs(qRed(back.pixel(x, y)) - qRed(expected.pixel(x, y))) <= 2);
                QVERIFY(std::abs(qBlue(back.pixel(x, y)) - qBlue(expected.pixel(x, y))) <= 2);
            }
        }
    }

    void threadCounts_giveTheSamePixels()
    {
        const QImage picture = noise({640, 481}, QImage::Format_RGB32);
        const exposure::Adjustment adjustment{-0.5, 0.4, 1.7};
        parallel::setThreadLimit(1);
        const QImage expected = adjusted(picture, adjustment);
        for (const int threads : {2, 5}) {
            parallel::setThreadLimit(threads);
            QCOMPARE(adjusted(picture, adjustment), expected);
        }
    }

    void valuesBeyondTheirRange_areTakenAsTheNearest()
    {
        const QImage picture = noise({9, 9}, QImage::Format_RGB32);
        QCOMPARE(adjusted(picture, {99, 5, 99}), adjusted(picture, {4, 1, 3}));
    }
};

QTEST_GUILESS_MAIN(TestAdjustment)
#include "tst_Adjustment.moc"
