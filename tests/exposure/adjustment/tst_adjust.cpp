#include "adjust.h"

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

using exposure::Look;

Look looking(double Look::*member, double value)
{
    Look look;
    look.*member = value;
    return look;
}

/// Dark on the left, light on the right, with fine stripes in both halves.
QImage stripedHalves()
{
    QImage picture(400, 300, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int level = (x < 200 ? 40 : 210) + (x / 2 % 2 == 0 ? 6 : -6);
            picture.setPixel(x, y, qRgb(level, level, level));
        }
    }
    return picture;
}

/// The difference of two neighbouring stripes.
int stripeContrast(const QImage &picture, int x)
{
    return qRed(picture.pixel(x, 150)) - qRed(picture.pixel(x + 2, 150));
}

QImage adjusted(QImage picture, const exposure::Look &look)
{
    exposure::adjust(picture, look);
    return picture;
}

double linear(int level)
{
    const double value = level / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

} // namespace

class TestAdjust : public QObject
{
    Q_OBJECT

private slots:
    void neutral_leavesThePictureAndItsMemory()
    {
        const QImage picture = noise({7, 5}, QImage::Format_RGB32);
        QImage same = picture;
        exposure::adjust(same, {});
        QCOMPARE(same.constBits(), picture.constBits());
    }

    void exposure_oneStop_doublesTheLight()
    {
        const QImage bright = adjusted(ramp(), looking(&Look::exposure, 1.0));
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
        const QImage curve = adjusted(ramp(), looking(&Look::contrast, contrast));
        QCOMPARE(qRed(curve.pixel(0, 0)), 0);
        QCOMPARE(qRed(curve.pixel(255, 0)), 255);
        QVERIFY(std::abs(qRed(curve.pixel(128, 0)) - 128) <= 2);
        const int quarter = qRed(curve.pixel(64, 0));
        QVERIFY(contrast > 0 ? quarter < 50 : quarter > 78);
        for (int x = 1; x < 256; ++x)
            QVERIFY(qRed(curve.pixel(x, 0)) >= qRed(curve.pixel(x - 1, 0)));
    }

    void shadowsUp_brightenTheDarkAndKeepItsDetail()
    {
        const QImage before = stripedHalves();
        const QImage after = adjusted(before, looking(&Look::shadows, 1.0));
        QVERIFY(qRed(after.pixel(100, 150)) > qRed(before.pixel(100, 150)) * 3 / 2);
        QVERIFY(stripeContrast(after, 100) > stripeContrast(before, 100) * 3 / 2);
        QVERIFY(std::abs(qRed(after.pixel(300, 150)) - qRed(before.pixel(300, 150))) <= 4);
    }

    void highlightsDown_darkenTheLightAndKeepItsDetail()
    {
        const QImage before = stripedHalves();
        const QImage after = adjusted(before, looking(&Look::highlights, -1.0));
        QVERIFY(qRed(after.pixel(300, 150)) < qRed(before.pixel(300, 150)) - 20);
        QVERIFY(stripeContrast(after, 300) >= stripeContrast(before, 300) * 3 / 4);
        QVERIFY(std::abs(qRed(after.pixel(100, 150)) - qRed(before.pixel(100, 150))) <= 4);
    }

    void tonesAtTheirEnds_leaveBlackAndTheOrderOfGreys()
    {
        for (const double shadows : {-1.0, 1.0}) {
            for (const double highlights : {-1.0, 1.0}) {
                Look look;
                look.shadows = shadows;
                look.highlights = highlights;
                const QImage curve = adjusted(ramp().scaled(2560, 400), look);
                QCOMPARE(qRed(curve.pixel(0, 0)), 0);
                QVERIFY(qRed(curve.pixel(2559, 0)) > 235); // its surroundings are darker
                for (int x = 1; x < curve.width(); ++x)
                    QVERIFY(qRed(curve.pixel(x, 200)) >= qRed(curve.pixel(x - 1, 200)) - 1);
            }
        }
    }

    void reducedPicture_looksLikeTheWholeReduced()
    {
        QImage whole = stripedHalves().scaled(1600, 1200);
        const Look look{0.0, 0.0, -0.8, 0.9, 0.0, 1.0, 1.0};
        const QImage small = adjusted(whole.scaled(400, 300), look);
        const QImage reduced = adjusted(whole, look).scaled(400, 300);
        for (int x = 0; x < small.width(); ++x)
            QVERIFY(std::abs(qRed(small.pixel(x, 150)) - qRed(reduced.pixel(x, 150))) <= 3);
    }

    void part_isWhatTheWholeHasThere()
    {
        const QImage whole = noise({301, 207}, QImage::Format_RGB32);
        const Look look{0.3, 0.1, -0.8, 0.9, 0.02, 0.97, 1.2};
        const exposure::LightMap map(whole);
        const QRect place(97, 31, 113, 59);
        QImage part = whole.copy(place);
        exposure::adjust(part, look, &map, place.topLeft());
        QCOMPARE(part, adjusted(whole, look).copy(place));
    }

    void blackAndWhitePoint_stretchWhatLiesBetween()
    {
        Look look;
        look.blackPoint = 0.2;
        look.whitePoint = 0.8;
        const QImage curve = adjusted(ramp(), look);
        QCOMPARE(qRed(curve.pixel(51, 0)), 0);
        QCOMPARE(qRed(curve.pixel(204, 0)), 255);
        QVERIFY(qRed(curve.pixel(50, 0)) == 0 && qRed(curve.pixel(54, 0)) > 0);
        QVERIFY(std::abs(qRed(curve.pixel(128, 0)) - 128) <= 1);
    }

    void alpha_stays()
    {
        QImage picture = noise({21, 9}, QImage::Format_ARGB32);
        picture.setPixel(3, 4, qRgba(10, 20, 30, 77));
        const QImage bright = adjusted(picture, looking(&Look::exposure, 1.0));
        QCOMPARE(qAlpha(bright.pixel(3, 4)), 77);
        QVERIFY(qRed(bright.pixel(3, 4)) > 10);
    }

    void saturation_none_givesGreys()
    {
        const QImage grey =
            adjusted(noise({31, 17}, QImage::Format_RGB32), looking(&Look::saturation, 0.0));
        for (int y = 0; y < grey.height(); ++y) {
            for (int x = 0; x < grey.width(); ++x)
                QVERIFY(qIsGray(grey.pixel(x, y)));
        }
    }

    void saturation_changesNoGrey()
    {
        QCOMPARE(adjusted(ramp(), looking(&Look::saturation, 2.5)), ramp());
    }

    void deepPicture_isAdjustedLikeAnEightBitOne()
    {
        const Look look{0.7, 0.3, -0.6, 0.8, 0.05, 0.9, 1.4};
        const QImage picture = noise({29, 13}, QImage::Format_RGB32);
        const QImage expected = adjusted(picture, look);
        const QImage deep = adjusted(picture.convertToFormat(QImage::Format_RGBX64), look);
        QCOMPARE(deep.format(), QImage::Format_RGBX64);
        const QImage back = deep.convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                // The map is made from the same numbers.
                QVERIFY(std::abs(qRed(back.pixel(x, y)) - qRed(expected.pixel(x, y))) <= 1);
                QVERIFY(std::abs(qBlue(back.pixel(x, y)) - qBlue(expected.pixel(x, y))) <= 1);
            }
        }
    }

    void valuesBeyondTheirRange_areTakenAsTheNearest()
    {
        const QImage picture = noise({9, 9}, QImage::Format_RGB32);
        QCOMPARE(adjusted(picture, {99, 5, -9, 9, 1, 0, 99}),
                 adjusted(picture, {4, 1, -1, 1, 0.4, 0.6, 3}));
        QCOMPARE(adjusted(picture, looking(&Look::exposure, std::nan(""))), picture);
    }
};

QTEST_GUILESS_MAIN(TestAdjust)
#include "tst_adjust.moc"
