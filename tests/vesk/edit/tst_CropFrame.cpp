#include "CropFrame.h"

#include <QtTest>

#include <cmath>
#include <random>

using Grip = CropFrame::Grip;

class TestCropFrame : public QObject
{
    Q_OBJECT

private slots:
    void start_isThePicture() { QCOMPARE(CropFrame({300, 200}).rect(), QRectF(0, 0, 300, 200)); }

    void drag_corner_movesItsSides()
    {
        CropFrame frame({300, 200});
        frame.drag(frame.rect(), Grip::TopLeft, {30, 20});
        QCOMPARE(frame.rect(), QRectF(30, 20, 270, 180));
        frame.drag(frame.rect(), Grip::Right, {-50, 99});
        QCOMPARE(frame.rect(), QRectF(30, 20, 220, 180));
    }

    void drag_inside_staysWithinThePicture()
    {
        CropFrame frame({300, 200});
        frame.setRect({50, 50, 100, 100});
        frame.drag(frame.rect(), Grip::Inside, {1000, -1000});
        QCOMPARE(frame.rect(), QRectF(200, 0, 100, 100));
    }

    void ratio_isKeptAtEveryGrip()
    {
        std::mt19937 random(11);
        const auto distance = [&random] { return double(int(random() % 800) - 400); };
        for (const double ratio : {1.0, 1.5, 16.0 / 9, 0.75}) {
            for (int grip = int(Grip::Left); grip <= int(Grip::BottomRight); ++grip) {
                CropFrame frame({300, 200});
                frame.setRect({40, 30, 150, 120});
                frame.setRatio(ratio);
                for (int i = 0; i < 50; ++i) {
                    frame.drag(frame.rect(), Grip(grip), {distance(), distance()});
                    const QRectF rect = frame.rect();
                    QVERIFY(std::abs(rect.width() / rect.height() - ratio) < 1e-6);
                    QVERIFY(QRectF(-1e-6, -1e-6, 300 + 2e-6, 200 + 2e-6).contains(rect));
                }
            }
        }
    }

    void gripAt_knowsCornersSidesAndInside()
    {
        CropFrame frame({300, 200});
        frame.setRect({50, 50, 100, 100});
        QCOMPARE(frame.gripAt({51, 49}, 5), Grip::TopLeft);
        QCOMPARE(frame.gripAt({100, 152}, 5), Grip::Bottom);
        QCOMPARE(frame.gripAt({100, 100}, 5), Grip::Inside);
        QCOMPARE(frame.gripAt({20, 100}, 5), Grip::None);
    }

    void setRect_emptyOrOutside_isThePicture()
    {
        CropFrame frame({300, 200});
        frame.setRect({400, 10, 50, 50});
        QCOMPARE(frame.rect(), QRectF(0, 0, 300, 200));
    }
};

QTEST_GUILESS_MAIN(TestCropFrame)
#include "tst_CropFrame.moc"
