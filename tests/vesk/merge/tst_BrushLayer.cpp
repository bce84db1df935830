#include "BrushLayer.h"
#include "MergePreview.h"

#include <QSignalSpy>
#include <QtTest>

using brush::Stroke;
using brush::Strokes;

namespace {

const QSize kSize(400, 300); // of the picture, which the preview shows one to one

} // namespace

class TestBrushLayer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void leftButton_paintsFromTheShot();
    void rightButtonAltOrEraser_erase_data();
    void rightButtonAltOrEraser_erase();
    void shift_takesAThing();
    void ctrl_pansThePreview();
    void wheel_isLeftToThePreview();
    void croppedPicture_isPaintedWhereItIs();
    void strokes_areTintedInTheirShotsColour();
    void whatMoved_isLighter();
    void whatMoved_withAShot_hasItsColour();
    void hidden_whilePainting_forgetsTheStroke();

private:
    void drag(const QList<QPoint> &points, Qt::MouseButton button,
              Qt::KeyboardModifiers modifiers = {});
    QColor seenAt(QPoint place);

    std::unique_ptr<MergePreview> preview;
    BrushLayer *layer = nullptr;
    Strokes painted;
};

void TestBrushLayer::init()
{
    preview = std::make_unique<MergePreview>();
    preview->resize(kSize);
    layer = new BrushLayer(preview.get());
    QImage picture(kSize, QImage::Format_RGB32);
    picture.fill(QColor(60, 60, 60));
    preview->setAfter(picture);
    preview->show();
    layer->show();
    QVERIFY(QTest::qWaitForWindowExposed(preview.get()));
    QCOMPARE(preview->viewPlace().target(), QRectF(QPointF(), kSize));
    painted.clear();
    connect(layer, &BrushLayer::painted, this,
            [this](const Stroke &stroke) { painted.push_back(stroke); });
    layer->setBrush(2, 12, false);
}

void TestBrushLayer::drag(const QList<QPoint> &points, Qt::MouseButton button,
                          Qt::KeyboardModifiers modifiers)
{
    QTest::mousePress(layer, button, modifiers, points.first());
    for (const QPoint &point : points.mid(1)) {
        QMouseEvent move(QEvent::MouseMove, point, layer->mapToGlobal(point), Qt::NoButton, button,
                         modifiers);
        QCoreApplication::sendEvent(layer, &move);
    }
    QTest::mouseRelease(layer, button, modifiers, points.last());
}

QColor TestBrushLayer::seenAt(QPoint place)
{
    return preview->grab().toImage().pixelColor(place);
}

void TestBrushLayer::leftButton_paintsFromTheShot()
{
    drag({{50, 60}, {70, 60}, {90, 60}, {90, 100}}, Qt::LeftButton);
    const Strokes expected{{2, 12, {{50, 60}, {90, 60}, {90, 100}}}};
    QVERIFY(painted == expected);
    drag({{7, 8}}, Qt::LeftButton);
    const Stroke dot{2, 12, {{7, 8}}};
    QVERIFY(painted.back() == dot);
}

void TestBrushLayer::rightButtonAltOrEraser_erase_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<bool>("isErasing");
    QTest::newRow("right button") << Qt::RightButton << Qt::KeyboardModifiers() << false;
    QTest::newRow("Alt") << Qt::LeftButton << Qt::KeyboardModifiers(Qt::AltModifier) << false;
    QTest::newRow("eraser") << Qt::LeftButton << Qt::KeyboardModifiers() << true;
}

void TestBrushLayer::rightButtonAltOrEraser_erase()
{
    QFETCH(Qt::MouseButton, button);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(bool, isErasing);
    layer->setBrush(1, 9, isErasing);
    drag({{50, 60}, {80, 60}}, button, modifiers);
    const Strokes expected{{brush::kErase, 9, {{50, 60}, {80, 60}}}};
    QVERIFY(painted == expected);
}

void TestBrushLayer::shift_takesAThing()
{
    drag({{50, 60}, {80, 60}}, Qt::LeftButton, Qt::ShiftModifier);
    const Strokes expected{{2, 0, {{50, 60}}}};
    QVERIFY(painted == expected);
}

void TestBrushLayer::ctrl_pansThePreview()
{
    preview->zoomTo(4);
    const QRectF before = preview->viewPlace().target();
    drag({{200, 150}, {180, 140}}, Qt::LeftButton, Qt::ControlModifier);
    QVERIFY(painted.empty());
    QCOMPARE(preview->viewPlace().target(), before.translated(-20, -10));
}

/// Ignored, so that it goes to the parent; which events made by hand do not.
void TestBrushLayer::wheel_isLeftToThePreview()
{
    QWheelEvent turn(QPointF(100, 100), layer->mapToGlobal(QPointF(100, 100)), {}, {0, 120},
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(layer, &turn);
    QVERIFY(!turn.isAccepted());
}

void TestBrushLayer::croppedPicture_isPaintedWhereItIs()
{
    layer->setStart({31, 17});
    drag({{50, 60}}, Qt::LeftButton);
    preview->zoomTo(2);
    const QPointF start = preview->viewPlace().toPicture({100, 80});
    drag({{100, 80}}, Qt::LeftButton);
    QCOMPARE(painted[0].points.front(), QPoint(81, 77));
    QCOMPARE(painted[1].points.front(), QPoint(int(start.x()) + 31, int(start.y()) + 17));
}

void TestBrushLayer::strokes_areTintedInTheirShotsColour()
{
    layer->setStart({10, 20});
    layer->setStrokes({{0, 20, {{110, 120}, {160, 120}}}, {brush::kErase, 5, {{160, 120}}}});
    const QColor colour = BrushLayer::colourOf(0);
    const QColor tinted = seenAt({100, 100});
    QVERIFY(std::abs(tinted.red() - (60 + (colour.red() - 60) * 45 / 100)) < 4);
    QVERIFY(std::abs(tinted.blue() - (60 + (colour.blue() - 60) * 45 / 100)) < 4);
    QCOMPARE(seenAt({150, 100}), QColor(60, 60, 60));
    QCOMPARE(seenAt({100, 130}), QColor(60, 60, 60));
    QVERIFY(seenAt({100, 117}) != QColor(60, 60, 60));
    QVERIFY(BrushLayer::colourOf(1) != colour);
}

void TestBrushLayer::whatMoved_isLighter()
{
    QImage moved(kSize / 2, QImage::Format_Grayscale8);
    moved.fill(0);
    for (int y = 50; y < 70; ++y)
        std::fill_n(moved.scanLine(y) + 50, 20, uchar(255));
    layer->setMoved(moved);
    QVERIFY(seenAt({120, 120}).red() > 80);
    QCOMPARE(seenAt({20, 20}), QColor(60, 60, 60));
    layer->setMoved({});
    QCOMPARE(seenAt({120, 120}), QColor(60, 60, 60));
}

/// Of two things the one with a chosen shot.
void TestBrushLayer::whatMoved_withAShot_hasItsColour()
{
    QImage moved(kSize / 2, QImage::Format_Grayscale8);
    moved.fill(0);
    for (int y = 50; y < 70; ++y) {
        std::fill_n(moved.scanLine(y) + 50, 30, uchar(255));
        std::fill_n(moved.scanLine(y) + 120, 30, uchar(255));
    }
    layer->setStart({10, 20});
    layer->setMoved(moved);
    layer->setStrokes({{0, 0, {{155, 125}}}, {1, 0, {{5, 5}}}, {1, 0, {{2, 3000}}}});
    const QColor chosen = seenAt({110, 130});
    QVERIFY(chosen.red() > chosen.blue() + 60);
    const QColor other = seenAt({270, 120});
    QCOMPARE(other.red(), other.blue());
    QVERIFY(other.red() > 80);
    layer->setStrokes({{0, 0, {{155, 125}}}, {brush::kErase, 9, {{158, 128}}}});
    QCOMPARE(seenAt({110, 130}), other);
}

void TestBrushLayer::hidden_whilePainting_forgetsTheStroke()
{
    QTest::mousePress(layer, Qt::LeftButton, {}, {50, 60});
    layer->hide();
    layer->show();
    QTest::mouseRelease(layer, Qt::LeftButton, {}, {60, 60});
    QVERIFY(painted.empty());
}

QTEST_MAIN(TestBrushLayer)
#include "tst_BrushLayer.moc"
