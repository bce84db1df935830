#include "adjust.h"
#include "automatic_look.h"

#include <QtTest>

#include <cmath>

using exposure::Look;

namespace {

/// Greys from least to most, evenly, in both directions.
QImage greys(int least, int most)
{
    QImage picture(256, 64, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int level = least + (most - least) * x / 255;
            picture.setPixel(x, y, qRgb(level, level, level));
        }
    }
    return picture;
}

} // namespace

class TestAutomaticLook : public QObject
{
    Q_OBJECT

private slots:
    void darkPicture_isBrightenedTowardsTheMiddle()
    {
        QImage picture = greys(0, 90);
        const Look look = exposure::automaticLook(picture);
        QVERIFY(look.exposure > 0.3 && look.exposure <= 1.5);
        QVERIFY(look.whitePoint < 1.0);
        exposure::adjust(picture, look);
        QVERIFY(std::abs(qRed(picture.pixel(128, 32)) - 117) < 40);
    }

    void lightPicture_isDarkened()
    {
        const Look look = exposure::automaticLook(greys(150, 255));
        QVERIFY(look.blackPoint > 0.0);
        QVERIFY(look.exposure <= 0.0);
        QVERIFY(look.highlights <= 0.0);
    }

    void flatPicture_usesItsRangeAfterwards()
    {
        QImage picture = greys(30, 215);
        exposure::adjust(picture, exposure::automaticLook(picture));
        QVERIFY(qRed(picture.pixel(0, 0)) <= 4);
        QVERIFY(qRed(picture.pixel(255, 0)) >= 240);
    }

    void wellExposedPicture_staysNearlyAsItIs()
    {
        const QImage picture = greys(0, 255);
        QImage adjusted = picture;
        exposure::adjust(adjusted, exposure::automaticLook(picture));
        for (int x = 0; x < 256; ++x)
            QVERIFY(std::abs(qRed(adjusted.pixel(x, 32)) - qRed(picture.pixel(x, 32))) <= 32);
    }

    void oneColour_orNoPicture_isLeftAlone()
    {
        QVERIFY(exposure::automaticLook(greys(77, 77)).isNeutral());
        QVERIFY(exposure::automaticLook({}).isNeutral());
    }

    void depth_makesNoDifference()
    {
        const QImage picture = greys(12, 140);
        const Look deep = exposure::automaticLook(picture.convertToFormat(QImage::Format_RGBX64));
        QVERIFY(deep == exposure::automaticLook(picture));
    }
};

QTEST_GUILESS_MAIN(TestAutomaticLook)
#include "tst_automatic_look.moc"
