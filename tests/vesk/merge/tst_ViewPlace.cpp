#include "ViewPlace.h"

#include <QtTest>

/// A picture of 4000 x 3000 in a view of 800 x 600.
class TestViewPlace : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void fit_showsAllInTheMiddle();
    void zoomTo_keepsThePlaceUnderThePointer();
    void pan_stopsAtTheEdges();
    void actualSize_onADenseScreen_isOnePixelForOne();
    void setPicture_largerCopy_keepsThePartOfTheScene();
    void emptyPicture_hasNoArea();

private:
    ViewPlace place;
};

void TestViewPlace::init()
{
    place = {};
    place.setView({800, 600}, 1);
    place.setPicture({4000, 3000});
}

void TestViewPlace::fit_showsAllInTheMiddle()
{
    QCOMPARE(place.zoom(), 0.2);
    QCOMPARE(place.target(), QRectF(0, 0, 800, 600));
    place.setView({1000, 600}, 1);
    QCOMPARE(place.target(), QRectF(100, 0, 800, 600));
    QCOMPARE(place.visible(), QRect(0, 0, 4000, 3000));
}

void TestViewPlace::zoomTo_keepsThePlaceUnderThePointer()
{
    const QPointF pointer(300, 200);
    const QPointF held = place.toPicture(pointer);
    place.zoomTo(1, pointer);
    QCOMPARE(place.toPicture(pointer), held);
    QCOMPARE(place.visible().size(), QSize(800, 600));
    QVERIFY(!place.isFit());
    place.fit();
    QCOMPARE(place.zoom(), 0.2);
}

void TestViewPlace::pan_stopsAtTheEdges()
{
    place.zoomTo(1, {400, 300});
    place.pan({100000, 100000});
    QCOMPARE(place.visible(), QRect(0, 0, 800, 600));
    place.pan({-10, 0}); // at once, however far it was pushed
    QCOMPARE(place.visible(), QRect(10, 0, 800, 600));
    place.pan({-100000, -100000});
    QCOMPARE(place.visible(), QRect(3200, 2400, 800, 600));
}

void TestViewPlace::actualSize_onADenseScreen_isOnePixelForOne()
{
    place.setView({800, 600}, 2);
    place.zoomTo(1, {400, 300});
    QCOMPARE(place.visible().size(), QSize(1600, 1200));
    QCOMPARE(place.targetOf({1300, 1000, 100, 100}).size(), QSizeF(50, 50));
}

void TestViewPlace::setPicture_largerCopy_keepsThePartOfTheScene()
{
    place.setPicture({1000, 750});
    place.zoomTo(2, {400, 300});
    const QPointF middle = place.toPicture({400, 300});
    place.setPicture({4000, 3000});
    QCOMPARE(place.toPicture({400, 300}), middle * 4);
}

void TestViewPlace::emptyPicture_hasNoArea()
{
    place.setPicture({});
    QVERIFY(place.visible().isEmpty());
    place.zoomTo(1, {0, 0});
    place.pan({5, 5});
    QVERIFY(place.visible().isEmpty());
}

QTEST_APPLESS_MAIN(TestViewPlace)
#include "tst_ViewPlace.moc"
