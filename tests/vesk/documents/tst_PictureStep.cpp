#include "PictureStep.h"

#include <QColorSpace>
#include <QtTest>

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

} // namespace

class TestPictureStep : public QObject
{
    Q_OBJECT

private slots:
    void everyStep_leadsBackAndForth_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::newRow("8 bits") << QImage::Format_RGB32;
        QTest::newRow("16 bits") << QImage::Format_RGBA64;
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
        struct Case
        {
            QImage after;
            std::unique_ptr<PictureStep> step;
        };
        Case cases[] = {
            {painted, picture_step::ofChange(before, painted)},
            {before.copy(area), picture_step::ofCrop(before, area)},
            {picture_step::turned(before, 1), picture_step::ofTurn(before, 1)},
            {picture_step::turned(before, 2), picture_step::ofTurn(before, 2)},
            {before.scaled(20, 20), picture_step::ofChange(before, before.scaled(20, 20))},
        };
        for (Case &each : cases) {
            QImage picture = each.after;
            for (int i = 0; i < 3; ++i) {
                QVERIFY(isSame(each.step->other(picture), before));
                each.step->apply(picture);
                QVERIFY(isSame(picture, before));
                QVERIFY(isSame(each.step->other(picture), each.after));
                each.step->apply(picture);
                QVERIFY(isSame(picture, each.after));
            }
        }
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
        const auto step = picture_step::ofCrop(before, {10, 20, 80, 70});
        QCOMPARE(step->bytes(), qint64(100 * 100 - 80 * 70) * 4);
    }

    void turn_holdsNothing()
    {
        QCOMPARE(picture_step::ofTurn(noise({10, 10}, QImage::Format_RGB32), 1)->bytes(), 0);
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
