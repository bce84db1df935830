#include "PictureStep.h"
#include "PictureSteps.h"

#include <area_mean.h>

#include <QColorSpace>
#include <QtTest>

#include <algorithm>
#include <random>

namespace {

QImage noise(QSize size, QImage::Format format, unsigned seed = 3)
{
    std::mt19937 random(seed);
    QImage picture(size, QImage::Format_RGBX64);
    for (int y = 0; y < size.height(); ++y) {
        auto *row = reinterpret_cast<QRgba64 *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            row[x] = qRgba64(quint16(random()), quint16(random()), quint16(random()), 0xFFFF);
    }
    picture = picture.convertToFormat(format);
    picture.setColorSpace(QColorSpace::AdobeRgb);
    picture.setDotsPerMeterX(3000);
    picture.setDotsPerMeterY(5000);
    return picture;
}

bool isSame(const QImage &a, const QImage &b)
{
    return a == b && a.format() == b.format() && a.colorSpace() == b.colorSpace() &&
           a.dotsPerMeterX() == b.dotsPerMeterX() && a.dotsPerMeterY() == b.dotsPerMeterY();
}

/// Of the channels of two pictures of one size, at the depth that they have.
int mostDifference(const QImage &a, const QImage &b)
{
    const bool isDeep = a.depth() > 32 || a.format() == QImage::Format_Grayscale16;
    int most = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgba64 p = a.pixelColor(x, y).rgba64();
            const QRgba64 q = b.pixelColor(x, y).rgba64();
            most = std::max({most, std::abs(p.red() - q.red()), std::abs(p.green() - q.green()),
                             std::abs(p.blue() - q.blue())});
        }
    }
    return isDeep ? most : most / 257;
}

} // namespace

class TestPictureStep : public QObject
{
    Q_OBJECT

private slots:
    void everyStep_leadsBackAndForth_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::newRow("8 bits") << QImage::Format_RGB32;
        QTest::newRow("16 bits") << QImage::Format_RGBX64;
        QTest::newRow("16 bits, alpha") << QImage::Format_RGBA64;
        QTest::newRow("grey") << QImage::Format_Grayscale8;
        QTest::newRow("deep grey") << QImage::Format_Grayscale16;
        QTest::newRow("24 bits a pixel") << QImage::Format_RGB888;
        QTest::newRow("palette") << QImage::Format_Indexed8;
        QTest::newRow("bits") << QImage::Format_Mono;
    }

    void everyStep_leadsBackAndForth()
    {
        QFETCH(const QImage::Format, format);
        const QImage before = noise({301, 157}, format);
        const QRect area(13, 7, 201, 111);
        QImage painted = before;
        for (int x = 90; x < 170; ++x)
            painted.setPixel(x, 40, format == QImage::Format_Indexed8 ? 1 : 0);
        QImage small = before.scaled(20, 20);
        struct Case
        {
            QImage after;
            std::unique_ptr<PictureStep> step; // forth or, of what is made already, back
            bool isMade;
        };
        Case cases[] = {
            {painted, picture_step::ofChange(before, painted), true},
            {small, picture_step::ofChange(before, small), true},
            {before.copy(area), picture_step::toCrop(before, area), false},
            {picture_step::turned(before, 1), picture_step::toTurn(before, 1), false},
            {picture_step::turned(before, 2), picture_step::toTurn(before, 2), false},
            {small,
             picture_step::toChange({small.size(), [small](const QImage &) { return small; }}),
             false},
        };
        for (Case &each : cases) {
            QImage picture = each.isMade ? each.after : before;
            QImage next = each.isMade ? before : each.after;
            for (int i = 0; i < 6; ++i) {
                const QImage now = picture;
                QCOMPARE(each.step->otherSize(picture), next.size());
                QVERIFY(isSame(each.step->other(picture), next));
                QVERIFY(each.step->apply(picture));
                QVERIFY(isSame(picture, next));
                next = now;
            }
        }
    }

    void otherReduced_isTheMeanOfTheOtherState_data() { everyStep_leadsBackAndForth_data(); }

    /// Before it is made, and on the way back.
    void otherReduced_isTheMeanOfTheOtherState()
    {
        QFETCH(const QImage::Format, format);
        const QImage before = noise({501, 307}, format);
        QImage painted = before;
        for (int x = 90; x < 470; ++x)
            painted.setPixel(x, 140, format == QImage::Format_Indexed8 ? 1 : 0);
        struct Case
        {
            std::unique_ptr<PictureStep> step;
            QImage picture;
            int roundings; // in another order
        };
        // Qt does not scale the same upright and lying.
        const int turnedRoundings = picture::isTakenFromRuns(format) ? 1 : 0xFFFF;
        Case cases[] = {
            {picture_step::ofChange(before, painted), painted, 0},
            {picture_step::toCrop(before, {13, 7, 401, 211}), before, 0},
            {picture_step::toTurn(before, 1), before, turnedRoundings},
            {picture_step::toTurn(before, 2), before, turnedRoundings},
            {picture_step::toTurn(before, 3), before, turnedRoundings},
            {picture_step::toChange({painted.size(), [&](const QImage &) { return painted; }}),
             before, 0},
        };
        for (Case &each : cases) {
            for (int i = 0; i < 2; ++i) {
                const QImage other = each.step->other(each.picture);
                const QRect parts[] = {other.rect(), other.rect().adjusted(40, 20, -70, -130)};
                for (const QRect &part : parts) {
                    for (const QSize size : {part.size(), part.size() / 3, QSize(1, 1)}) {
                        const QImage small = each.step->otherReduced(each.picture, part, size);
                        const QImage expected = picture::areaMean(other, part, size);
                        QCOMPARE(small.format(), expected.format());
                        QVERIFY(mostDifference(small, expected) <= each.roundings);
                    }
                }
                QVERIFY(each.step->apply(each.picture));
            }
        }
    }

    void change_withoutMemory_leavesAllAsItIs()
    {
        const QImage before = noise({30, 20}, QImage::Format_RGB32);
        bool isLacking = false;
        std::vector<std::unique_ptr<PictureStep>> steps;
        steps.push_back(picture_step::toTurn(before, 1));
        steps.push_back(nullptr);
        steps.push_back(picture_step::toChange({{20, 30}, [&](const QImage &picture) {
                                                    return isLacking
                                                               ? QImage()
                                                               : picture_step::turned(picture, 3);
                                                }}));
        PictureSteps all(std::move(steps));
        QList<QImage> pictures = {before, before, before};
        isLacking = true;
        QVERIFY(!all.apply(pictures));
        QCOMPARE(all.timesApplied(), 0);
        QCOMPARE(pictures, QList<QImage>({before, before, before}));
        isLacking = false;
        QVERIFY(all.apply(pictures));
        QCOMPARE(pictures, QList<QImage>({picture_step::turned(before, 1), before,
                                          picture_step::turned(before, 3)}));
        QVERIFY(all.apply(pictures));
        QCOMPARE(pictures, QList<QImage>({before, before, before}));
    }

    void change_holdsTheTilesThatDiffer()
    {
        const QImage before = noise({1000, 1000}, QImage::Format_RGB32);
        QImage after = before;
        after.setPixel(500, 500, 1);
        QCOMPARE(picture_step::ofChange(before, after)->bytes(), qint64(128 * 128 * 4));
        QCOMPARE(picture_step::ofChange(before, before)->bytes(), qint64(0));
    }

    void crop_holdsWhatWasCutOff()
    {
        const QImage before = noise({100, 100}, QImage::Format_RGB32);
        const auto step = picture_step::toCrop(before, {10, 20, 80, 70});
        QCOMPARE(step->bytes(), qint64(0));
        QImage picture = before;
        QVERIFY(step->apply(picture));
        QCOMPARE(step->bytes(), qint64(100 * 100 - 80 * 70) * 4);
    }

    void turn_holdsNothing()
    {
        QImage picture = noise({10, 10}, QImage::Format_RGB32);
        const auto step = picture_step::toTurn(picture, 1);
        QVERIFY(step->apply(picture));
        QCOMPARE(step->bytes(), 0);
    }

    /// Also large ones, which several threads make.
    void turnedAndPart_areWhatQtMakes()
    {
        for (const auto format :
             {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_RGBX64,
              QImage::Format_RGBA64_Premultiplied, QImage::Format_RGB888}) {
            for (const QSize size : {QSize(1, 1), QSize(33, 1), QSize(65, 31), QSize(1501, 1033)}) {
                const QImage picture = noise(size, format);
                for (const int quarters : {-1, 1, 2, 3}) {
                    const QImage turned = picture_step::turned(picture, quarters);
                    QImage expected = picture.transformed(QTransform().rotate(90 * quarters));
                    expected.setColorSpace(picture.colorSpace()); // which Qt drops
                    QCOMPARE(turned, expected);
                    QCOMPARE(turned.format(), format);
                }
                const QRect area(size.width() / 3, size.height() / 4, (size.width() + 1) / 2,
                                 (size.height() + 1) / 2);
                QVERIFY(isSame(picture_step::part(picture, area), picture.copy(area)));
            }
        }
    }

    void apply_leavesSharedPicturesAlone()
    {
        const QImage before = noise({300, 200}, QImage::Format_RGB32);
        QImage after = before;
        after.setPixel(5, 5, 1);
        const auto step = picture_step::ofChange(before, after);
        QImage picture = after;
        step->apply(picture);
        QVERIFY(isSame(picture, before));
        QVERIFY(after != before);
    }

    void turned_movesTheResolutionWithTheSides()
    {
        const QImage before = noise({30, 20}, QImage::Format_RGB32);
        const QImage after = picture_step::turned(before, 1);
        QCOMPARE(after.size(), QSize(20, 30));
        QCOMPARE(after.dotsPerMeterX(), 5000);
        QCOMPARE(after.pixel(19, 0), before.pixel(0, 0));
        QCOMPARE(after.colorSpace(), before.colorSpace());
    }
};

QTEST_GUILESS_MAIN(TestPictureStep)
#include "tst_PictureStep.moc"
