#include <VeskCanvas.h>

#include <VeskContext.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>
#include <VeskScreenColours.h>
#include <VeskSelection.h>

#include <QApplication>
#include <QPainter>
#include <QPointingDevice>
#include <QProxyStyle>
#include <QWheelEvent>
#include <QtMath>
#include <QtTest>

#include <memory>

namespace {

constexpr int kLimitMs = 30000;
const QSize kCanvasSize(400, 300);

// One document in a canvas of 400 x 300.
struct Document
{
    explicit Document(const QImage &picture)
        : layer(new VeskLayer(QStringLiteral("layer")))
    {
        layer->setVeskPictureHost(new VeskPictureHost(picture));
        context.getLayerManager()->addLayer(layer, true);
        canvas.resize(kCanvasSize);
        canvas.reSizeCanvas(picture.width(), picture.height(), true);
        context.setCanvas(&canvas);
        canvas.attachContext(&context);
    }

    void show()
    {
        canvas.show();
        QVERIFY(QTest::qWaitForWindowExposed(&canvas));
    }

    QImage shown() { return canvas.grab().toImage().convertToFormat(QImage::Format_RGB32); }

    VeskContext context;
    VeskLayer *layer;
    VeskCanvas canvas;
};

QImage filled(const QSize &size, const QColor &color, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(size, format);
    image.fill(color);
    return image;
}

// While it lives, the screen shows red as blue and the common space red as green; counts the pixels
// that are brought to the screen.
class ScreenColours
{
public:
    ScreenColours()
    {
        VeskScreenColours::getInstance().setMakers(
            [count = converted](const QColorSpace &) {
                return [count](QImage &picture) {
                    *count += picture.width() * picture.height();
                    picture = std::move(picture).rgbSwapped();
                };
            },
            [](const QColorSpace &) {
                return [](QImage &picture) {
                    for (int y = 0; y < picture.height(); ++y) {
                        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
                        for (int x = 0; x < picture.width(); ++x)
                            row[x] = qRgb(qGreen(row[x]), qRed(row[x]), qBlue(row[x]));
                    }
                };
            });
    }
    ~ScreenColours() { VeskScreenColours::getInstance().setMakers({}, {}); }
    ScreenColours(const ScreenColours &) = delete;
    ScreenColours &operator=(const ScreenColours &) = delete;

    int pixels() const { return *converted; }

private:
    std::shared_ptr<int> converted = std::make_shared<int>(0);
};

// Left half red, right half blue.
QImage twoHalves(const QSize &size)
{
    QImage image = filled(size, Qt::red);
    QPainter painter(&image);
    painter.fillRect(size.width() / 2, 0, size.width(), size.height(), Qt::blue);
    return image;
}

void turnWheel(VeskCanvas &canvas, const QPoint &position, int notches,
               Qt::MouseEventSource source = Qt::MouseEventNotSynthesized)
{
    const QPoint angle(0, 120 * notches);
    QWheelEvent wheel(position, canvas.mapToGlobal(position), QPoint(0, 30 * notches), angle,
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false, source);
    QApplication::sendEvent(&canvas, &wheel);
}

void moveMouse(QWidget &widget, const QPoint &position, Qt::MouseButtons buttons)
{
    QMouseEvent move(QEvent::MouseMove, position, widget.mapToGlobal(position), Qt::NoButton,
                     buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
}

void pinch(VeskCanvas &canvas, const QPoint &position, qreal change)
{
    QNativeGestureEvent gesture(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2,
                                position, position, canvas.mapToGlobal(position), change, {});
    QApplication::sendEvent(&canvas, &gesture);
}

struct AnimationStyle : QProxyStyle
{
    explicit AnimationStyle(int durationMs)
        : duration(durationMs)
    {
    }
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override
    {
        return hint == SH_Widget_Animation_Duration
                   ? duration
                   : QProxyStyle::styleHint(hint, option, widget, data);
    }
    const int duration;
};

} // namespace

class TestCanvas : public QObject
{
    Q_OBJECT

private:
    const std::unique_ptr<QPointingDevice> touchScreen{QTest::createTouchDevice()};

private slots:
    void paint_actualSize_showsThePixelsAsTheyAre();
    void paint_reduced_showsThePicture();
    void paint_enlarged_showsPixelsAsSquares();
    void paint_withoutContext_isNeutral();
    void paint_transparency_showsACheckerboard();
    void paint_severalLayers_areFlattened();
    void paint_layerChanged_isRepainted();
    void paint_hugePicture_costsTheVisibleAreaOnly();
    void paint_reduced_endsAsTheMeanOfThePixels();
    void paint_withScreenColours_convertsAtEveryZoom_data();
    void paint_withScreenColours_convertsAtEveryZoom();
    void paint_deepPicture_isRounded();
    void pan_withScreenColours_convertsOnlyWhatComesIntoView();

    void zoom_fitsAtFirstAndFollowsTheWidget();
    void zoom_steps_stopAtActualSize();
    void zoom_outOfBounds_isMovedInside();
    void zoomChanged_isSentOncePerChange();
    void wheel_zoomsAroundThePointer();
    void wheel_withAnimations_glidesToTheSameZoom();
    void wheel_notchesDuringTheGlide_addUp();
    void wheel_secondGlide_startsWhereTheViewIs();
    void wheel_ofATrackpad_pans();
    void pinch_zoomsAroundTheFingers();
    void pinch_onATouchScreen_zooms();
    void finger_onATouchScreen_pans();
    void doubleClick_changesBetweenFitAndActualSize();
    void drag_pansAndStopsAtTheEdges();
    void drag_ofAFittedView_leavesItFitted();
    void arrowKeys_pan();
    void moveToCenter_showsTheMiddle();

    void reSizeCanvas_withoutRefit_keepsTheZoom();
    void reSizeCanvas_negative_countsAsEmpty();
    void resetCanvas_keepsContextSelectionAndZoom();
    void attachContext_otherDocument_showsItAndForgetsTheFirst();
    void context_deleted_leavesAnEmptyCanvas();
    void canvas_deleted_isForgottenByItsContext();
    void selection_deleted_isForgotten();

    void pointer_reportsPixelAndColour();
    void pointer_outsideOfTheDocument_reportsNothing();
    void pointer_resting_isReportedAgainWhenThePictureMovesUnderIt();
    void pointer_resting_isReportedAgainWhenTheLayersChange();
    void selection_isOutlined();
    void canvasTimer_movesTheOutlineOnly();
    void canvasTimer_zeroInterval_doesNotFloodTheLoop();
    void canvasTimer_stops();
    void updateHistogram_countsTheDocumentAndTells();
};

// --- Painting ---

void TestCanvas::paint_actualSize_showsThePixelsAsTheyAre()
{
    QImage picture(kCanvasSize, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb(x % 256, y % 256, (x * y) % 256));
    Document document(picture);
    QCOMPARE(document.canvas.zoom(), 1.0);
    QCOMPARE(document.shown(), picture);
}

void TestCanvas::paint_reduced_showsThePicture()
{
    Document document(twoHalves(QSize(4000, 3000)));
    const QImage shown = document.shown(); // hidden canvas: nothing is prepared yet
    QCOMPARE(shown.pixelColor(100, 150), QColor(Qt::red));
    QCOMPARE(shown.pixelColor(300, 150), QColor(Qt::blue));
}

void TestCanvas::paint_enlarged_showsPixelsAsSquares()
{
    QImage picture = filled(QSize(10, 10), Qt::white);
    picture.setPixelColor(5, 5, Qt::black);
    Document document(picture);
    document.canvas.setZoom(20);
    const QImage shown = document.shown();
    const QPoint first = document.canvas.toWidget(QPointF(5, 5)).toPoint();
    for (const QPoint &corner : {QPoint(0, 0), QPoint(19, 0), QPoint(0, 19), QPoint(19, 19)})
        QCOMPARE(shown.pixelColor(first + corner), QColor(Qt::black));
    QCOMPARE(shown.pixelColor(first - QPoint(1, 1)), QColor(Qt::white));
    QCOMPARE(shown.pixelColor(first + QPoint(20, 20)), QColor(Qt::white));
}

void TestCanvas::paint_withoutContext_isNeutral()
{
    VeskCanvas canvas;
    canvas.resize(kCanvasSize);
    canvas.reSizeCanvas(100, 100, true);
    const QImage shown = canvas.grab().toImage();
    const QColor color = shown.pixelColor(200, 150);
    QCOMPARE(color.saturation(), 0);
    QCOMPARE(shown.pixelColor(0, 0), color);
}

void TestCanvas::paint_transparency_showsACheckerboard()
{
    Document document(filled(QSize(64, 64), Qt::transparent, QImage::Format_ARGB32));
    const QImage shown = document.shown();
    const QPoint first = document.canvas.toWidget(QPointF(0, 0)).toPoint();
    const QColor one = shown.pixelColor(first + QPoint(4, 4));
    const QColor other = shown.pixelColor(first + QPoint(12, 4));
    QVERIFY(one != other);
    QCOMPARE(shown.pixelColor(first + QPoint(12, 12)), one);
    QCOMPARE(shown.pixelColor(first + QPoint(20, 4)), one);
}

void TestCanvas::paint_severalLayers_areFlattened()
{
    Document document(filled(QSize(100, 100), Qt::black));
    auto *upper = new VeskLayer("upper");
    upper->setVeskPictureHost(new VeskPictureHost(filled(QSize(50, 100), Qt::white)));
    upper->setAlpha(0.5F);
    document.context.getLayerManager()->addLayer(upper, true);
    const QImage shown = document.shown();
    const QPoint first = document.canvas.toWidget(QPointF(0, 0)).toPoint();
    QVERIFY(qAbs(shown.pixelColor(first + QPoint(25, 50)).red() - 128) <= 1);
    QCOMPARE(shown.pixelColor(first + QPoint(75, 50)), QColor(Qt::black));
}

void TestCanvas::paint_layerChanged_isRepainted()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    document.show();
    const qint64 pixels = qint64(4000) * 3000;
    QTRY_VERIFY_WITH_TIMEOUT(document.canvas.paintedPixelsRead() >= pixels, kLimitMs);
    QCOMPARE(document.shown().pixelColor(200, 150), QColor(Qt::red));
    document.layer->setVeskPictureHost(new VeskPictureHost(filled(QSize(4000, 3000), Qt::green)));
    QCOMPARE(document.shown().pixelColor(200, 150), QColor(Qt::green));
}

void TestCanvas::paint_hugePicture_costsTheVisibleAreaOnly()
{
    // 100 megapixels; one byte each keeps the test small.
    const QSize size(12500, 8000);
    const qint64 pixels = qint64(size.width()) * size.height();
    const qint64 visible = qint64(kCanvasSize.width()) * kCanvasSize.height();
    QImage picture(size, QImage::Format_Grayscale8);
    picture.fill(90);
    Document document(picture);

    // The first paint, before any reduced copy exists.
    QCOMPARE(document.shown().pixel(200, 150), qRgb(90, 90, 90));
    QVERIFY(document.canvas.paintedPixelsRead() <= visible);

    // The copies are made once, in the background.
    document.show();
    QTRY_VERIFY_WITH_TIMEOUT(document.canvas.paintedPixelsRead() >= pixels, kLimitMs);
    QTest::qWait(0);
    const qint64 prepared = document.canvas.paintedPixelsRead();
    QVERIFY(prepared < pixels + 100 * visible);

    // From now on repaints do not read the document at all.
    for (int i = 0; i < 5; ++i)
        QCOMPARE(document.shown().pixel(200, 150), qRgb(90, 90, 90));
    QCOMPARE(document.canvas.paintedPixelsRead(), prepared);

    // At actual size and above only what is visible is read.
    for (const qreal zoom : {1.0, 4.0}) {
        document.canvas.setZoom(zoom);
        const qint64 before = document.canvas.paintedPixelsRead();
        document.shown();
        const qint64 read = document.canvas.paintedPixelsRead() - before;
        QVERIFY(read > 0);
        QVERIFY(read <= visible * 11 / 10);
    }
}

void TestCanvas::paint_reduced_endsAsTheMeanOfThePixels()
{
    QImage picture(QSize(3200, 2400), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            row[x] = ((x + y) % 2) ? 0xffffffffU : 0xff000000U;
    }
    Document document(picture);
    document.show();
    const qint64 pixels = qint64(3200) * 2400;
    QTRY_VERIFY_WITH_TIMEOUT(document.canvas.paintedPixelsRead() >= pixels, kLimitMs);
    // Picked pixels would be black or white.
    QTRY_COMPARE_WITH_TIMEOUT(document.shown().pixel(200, 150), qRgb(128, 128, 128), kLimitMs);
}

void TestCanvas::paint_withScreenColours_convertsAtEveryZoom_data()
{
    QTest::addColumn<qreal>("zoom");
    QTest::newRow("enlarged") << 4.0;
    QTest::newRow("actual size") << 1.0;
    QTest::newRow("a little reduced") << 0.7;
    QTest::newRow("reduced") << 0.1;
}

void TestCanvas::paint_withScreenColours_convertsAtEveryZoom()
{
    QFETCH(qreal, zoom);
    const ScreenColours swapped;
    Document document(filled(QSize(4000, 3000), QColor(10, 20, 30)));
    document.canvas.setZoom(zoom);
    QCOMPARE(document.shown().pixelColor(200, 150), QColor(30, 20, 10)); // before there are copies
    document.show();
    QTest::qWait(0);
    QTRY_COMPARE_WITH_TIMEOUT(document.shown().pixelColor(200, 150), QColor(30, 20, 10), kLimitMs);
    QCOMPARE(document.canvas.colorAt({5, 5}), QColor(10, 20, 30)); // as it is stored
    QCOMPARE(document.canvas.onScreen(QColor(10, 20, 30)), QColor(30, 20, 10));
    document.canvas.updateHistogram();
    QCOMPARE(document.canvas.histogram().red[20], quint32(4000 * 3000)); // green in its place
}

void TestCanvas::paint_deepPicture_isRounded()
{
    Document document(filled(QSize(900, 700),
                             QColor::fromRgba64(257 * 40 + 129, 257 * 40 + 128, 257 * 7),
                             QImage::Format_RGBX64));
    for (const qreal zoom : {1.0, 0.3}) {
        document.canvas.setZoom(zoom);
        QCOMPARE(document.shown().pixelColor(200, 150), QColor(41, 40, 7));
    }
    QCOMPARE(document.canvas.bitsPerChannel(), 16);
    QCOMPARE(document.canvas.colorAt({5, 5}).rgba64().red(), quint16(257 * 40 + 129));
}

void TestCanvas::pan_withScreenColours_convertsOnlyWhatComesIntoView()
{
    const ScreenColours swapped;
    Document document(filled(QSize(6000, 4000), Qt::red));
    document.canvas.setZoom(1);
    document.shown();
    const int whole = swapped.pixels();
    QVERIFY(whole > 0);
    document.shown();
    QCOMPARE(swapped.pixels(), whole); // nothing is converted twice
    QTest::keyClick(&document.canvas, Qt::Key_Right);
    document.shown();
    QVERIFY(swapped.pixels() - whole <= 256 * 256 * 3); // one column of tiles
}

// --- Zoom and position ---

void TestCanvas::zoom_fitsAtFirstAndFollowsTheWidget()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    QVERIFY(document.canvas.isFitted());
    QCOMPARE(document.canvas.zoom(), 0.1);
    document.show();
    document.canvas.resize(800, 600);
    QTRY_COMPARE(document.canvas.zoom(), 0.2);
}

void TestCanvas::zoom_steps_stopAtActualSize()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    document.canvas.setZoom(0.9);
    document.canvas.zoomIn();
    QCOMPARE(document.canvas.zoom(), 1.0);
    document.canvas.zoomIn();
    QVERIFY(document.canvas.zoom() > 1.0);
    document.canvas.setZoom(1.1);
    document.canvas.zoomOut();
    QCOMPARE(document.canvas.zoom(), 1.0);
    document.canvas.zoomOut();
    QVERIFY(document.canvas.zoom() < 1.0);
}

void TestCanvas::zoom_outOfBounds_isMovedInside()
{
    Document document(filled(QSize(40, 30), Qt::red));
    document.canvas.setZoom(1e12);
    QCOMPARE(document.canvas.zoom(), VeskCanvas::kMaximumZoom);
    document.canvas.zoomIn();
    QCOMPARE(document.canvas.zoom(), VeskCanvas::kMaximumZoom);
    document.canvas.setZoom(0);
    QCOMPARE(document.canvas.zoom(), VeskCanvas::kMinimumZoom);
    document.canvas.zoomOut();
    QCOMPARE(document.canvas.zoom(), VeskCanvas::kMinimumZoom);
    document.shown();
}

void TestCanvas::zoomChanged_isSentOncePerChange()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    QSignalSpy changes(&document.canvas, &VeskCanvas::zoomChanged);
    document.canvas.setZoom(2);
    document.canvas.setZoom(2);
    document.canvas.moveToCenter(true);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0).toDouble(), 2.0);
    document.canvas.zoomToFit();
    QCOMPARE(changes.count(), 2);
}

void TestCanvas::wheel_zoomsAroundThePointer()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    AnimationStyle noAnimations(0);
    document.canvas.setStyle(&noAnimations);
    document.canvas.zoomToActualSize();
    const QPoint pointer(90, 220);
    const QPointF before = document.canvas.toDocument(pointer);
    turnWheel(document.canvas, pointer, 3);
    QCOMPARE(document.canvas.zoom(), 2.0);
    QVERIFY((document.canvas.toWidget(before) - pointer).manhattanLength() <= 1);
    turnWheel(document.canvas, pointer, -3);
    QCOMPARE(document.canvas.zoom(), 1.0);
    QVERIFY((document.canvas.toWidget(before) - pointer).manhattanLength() <= 2);
    document.canvas.setStyle(nullptr);
}

void TestCanvas::wheel_withAnimations_glidesToTheSameZoom()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    AnimationStyle animations(100);
    document.canvas.setStyle(&animations);
    document.canvas.zoomToActualSize();
    const QPoint pointer(90, 220);
    const QPointF before = document.canvas.toDocument(pointer);
    QSignalSpy changes(&document.canvas, &VeskCanvas::zoomChanged);
    turnWheel(document.canvas, pointer, 3);
    QVERIFY(document.canvas.zoom() < 2.0);
    QTRY_COMPARE(document.canvas.zoom(), 2.0);
    QVERIFY((document.canvas.toWidget(before) - pointer).manhattanLength() <= 1);
    QVERIFY(changes.count() >= 1);
    document.canvas.setStyle(nullptr);
}

void TestCanvas::wheel_notchesDuringTheGlide_addUp()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    AnimationStyle animations(100);
    document.canvas.setStyle(&animations);
    document.canvas.zoomToActualSize();
    for (int i = 0; i < 6; ++i)
        turnWheel(document.canvas, QPoint(200, 150), 1);
    QTRY_VERIFY(qAbs(document.canvas.zoom() - 4.0) < 1e-9);
    document.canvas.setStyle(nullptr);
}

void TestCanvas::wheel_secondGlide_startsWhereTheViewIs()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    AnimationStyle animations(100);
    document.canvas.setStyle(&animations);
    document.canvas.zoomToActualSize();
    turnWheel(document.canvas, QPoint(200, 150), 3);
    QTRY_COMPARE(document.canvas.zoom(), 2.0);
    QSignalSpy changes(&document.canvas, &VeskCanvas::zoomChanged);
    turnWheel(document.canvas, QPoint(200, 150), 3);
    QCOMPARE(document.canvas.zoom(), 2.0);
    QTRY_COMPARE(document.canvas.zoom(), 4.0);
    document.canvas.setStyle(nullptr);
}

void TestCanvas::wheel_ofATrackpad_pans()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    document.canvas.zoomToActualSize();
    const QPointF before = document.canvas.toDocument(QPointF(0, 0));
    turnWheel(document.canvas, QPoint(200, 150), 2, Qt::MouseEventSynthesizedBySystem);
    QCOMPARE(document.canvas.zoom(), 1.0);
    QCOMPARE(document.canvas.toDocument(QPointF(0, 0)), before - QPointF(0, 60));
}

void TestCanvas::pinch_zoomsAroundTheFingers()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    document.canvas.zoomToActualSize();
    const QPoint fingers(90, 220);
    const QPointF before = document.canvas.toDocument(fingers);
    pinch(document.canvas, fingers, 0.5);
    QCOMPARE(document.canvas.zoom(), 1.5);
    QVERIFY((document.canvas.toWidget(before) - fingers).manhattanLength() <= 1);
}

void TestCanvas::pinch_onATouchScreen_zooms()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    document.show();
    document.canvas.zoomToActualSize();
    QWidget *canvas = &document.canvas;
    QTest::touchEvent(canvas, touchScreen.get())
        .press(0, {180, 150}, canvas)
        .press(1, {220, 150}, canvas);
    for (int distance = 30; distance <= 80; distance += 10)
        QTest::touchEvent(canvas, touchScreen.get())
            .move(0, {200 - distance, 150}, canvas)
            .move(1, {200 + distance, 150}, canvas);
    QTest::touchEvent(canvas, touchScreen.get())
        .release(0, {120, 150}, canvas)
        .release(1, {280, 150}, canvas);
    QCOMPARE(document.canvas.zoom(), 4.0);
}

void TestCanvas::finger_onATouchScreen_pans()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    document.show();
    document.canvas.zoomToActualSize();
    const QPointF before = document.canvas.toDocument(QPointF(0, 0));
    QWidget *canvas = &document.canvas;
    QTest::touchEvent(canvas, touchScreen.get()).press(0, {200, 150}, canvas);
    QTest::touchEvent(canvas, touchScreen.get()).move(0, {170, 130}, canvas);
    QTest::touchEvent(canvas, touchScreen.get()).release(0, {170, 130}, canvas);
    QCOMPARE(document.canvas.toDocument(QPointF(0, 0)), before + QPointF(30, 20));
    QCOMPARE(document.canvas.zoom(), 1.0);
}

void TestCanvas::doubleClick_changesBetweenFitAndActualSize()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    const QPoint place(100, 100);
    const QPointF pixel = document.canvas.toDocument(place);
    QTest::mouseDClick(&document.canvas, Qt::LeftButton, {}, place);
    QCOMPARE(document.canvas.zoom(), 1.0);
    QVERIFY((document.canvas.toWidget(pixel) - place).manhattanLength() <= 1);
    QTest::mouseDClick(&document.canvas, Qt::LeftButton, {}, place);
    QVERIFY(document.canvas.isFitted());
    QCOMPARE(document.canvas.zoom(), 0.1);
}

void TestCanvas::drag_pansAndStopsAtTheEdges()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    document.canvas.zoomToActualSize();
    const QPointF before = document.canvas.toDocument(QPointF(0, 0));
    QTest::mousePress(&document.canvas, Qt::LeftButton, {}, QPoint(200, 150));
    moveMouse(document.canvas, QPoint(150, 130), Qt::LeftButton);
    QCOMPARE(document.canvas.toDocument(QPointF(0, 0)), before + QPointF(50, 20));
    moveMouse(document.canvas, QPoint(10000, 10000), Qt::LeftButton);
    QCOMPARE(document.canvas.toDocument(QPointF(0, 0)), QPointF(0, 0));
    QTest::mouseRelease(&document.canvas, Qt::LeftButton, {}, QPoint(200, 150));
    moveMouse(document.canvas, QPoint(0, 0), Qt::NoButton);
    QCOMPARE(document.canvas.toDocument(QPointF(0, 0)), QPointF(0, 0));
}

void TestCanvas::drag_ofAFittedView_leavesItFitted()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    QTest::mousePress(&document.canvas, Qt::LeftButton, {}, QPoint(200, 150));
    moveMouse(document.canvas, QPoint(150, 130), Qt::LeftButton);
    QVERIFY(document.canvas.isFitted());
}

void TestCanvas::arrowKeys_pan()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    document.canvas.zoomToActualSize();
    const QPointF before = document.canvas.toDocument(QPointF(0, 0));
    QTest::keyClick(&document.canvas, Qt::Key_Right);
    QTest::keyClick(&document.canvas, Qt::Key_Down);
    QCOMPARE(document.canvas.toDocument(QPointF(0, 0)), before + QPointF(40, 30));
    QTest::keyClick(&document.canvas, Qt::Key_Left);
    QTest::keyClick(&document.canvas, Qt::Key_Up);
    QCOMPARE(document.canvas.toDocument(QPointF(0, 0)), before);
}

void TestCanvas::moveToCenter_showsTheMiddle()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    document.canvas.setZoomAt(2, QPointF(0, 0));
    document.canvas.moveToCenter(true);
    QCOMPARE(document.canvas.toDocument(QPointF(200, 150)), QPointF(2000, 1500));
    QCOMPARE(document.canvas.zoom(), 2.0);
}

// --- Documents ---

void TestCanvas::reSizeCanvas_withoutRefit_keepsTheZoom()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    document.canvas.setZoom(2);
    document.canvas.reSizeCanvas(5000, 100, false);
    QCOMPARE(document.canvas.zoom(), 2.0);
    QCOMPARE(document.canvas.canvasSize(), QSize(5000, 100));
    document.canvas.reSizeCanvas(4000, 3000, true);
    QCOMPARE(document.canvas.zoom(), 0.1);
}

void TestCanvas::reSizeCanvas_negative_countsAsEmpty()
{
    Document document(filled(QSize(40, 30), Qt::red));
    document.canvas.reSizeCanvas(-7, 30, true);
    QVERIFY(document.canvas.canvasSize().isEmpty());
    document.shown();
    document.canvas.updateHistogram();
    QCOMPARE(document.canvas.histogram().red[255], 0U);
}

void TestCanvas::resetCanvas_keepsContextSelectionAndZoom()
{
    Document document(filled(QSize(4000, 3000), Qt::red));
    VeskSelection selection(nullptr, 4000, 3000);
    document.canvas.setSelection(&selection);
    document.canvas.setZoom(0.25);
    document.show();
    const qint64 before = document.canvas.paintedPixelsRead();
    document.canvas.resetCanvas();
    QCOMPARE(document.canvas.context(), &document.context);
    QCOMPARE(document.canvas.selection(), &selection);
    QCOMPARE(document.canvas.zoom(), 0.25);
    QCOMPARE(document.shown().pixelColor(200, 150), QColor(Qt::red));
    QVERIFY(document.canvas.paintedPixelsRead() > before);
}

void TestCanvas::attachContext_otherDocument_showsItAndForgetsTheFirst()
{
    Document first(filled(kCanvasSize, Qt::red));
    Document second(filled(kCanvasSize, Qt::green));
    first.canvas.attachContext(&second.context);
    QCOMPARE(first.canvas.context(), &second.context);
    QCOMPARE(first.shown().pixelColor(200, 150), QColor(Qt::green));
    first.canvas.attachContext(nullptr);
    QVERIFY(!first.canvas.context());
    QVERIFY(first.shown().pixelColor(200, 150) != QColor(Qt::green));
}

void TestCanvas::context_deleted_leavesAnEmptyCanvas()
{
    VeskCanvas canvas;
    canvas.resize(kCanvasSize);
    canvas.show();
    {
        Document document(filled(QSize(4000, 3000), Qt::red));
        canvas.reSizeCanvas(4000, 3000, true);
        canvas.attachContext(&document.context);
        canvas.grab();
    }
    QVERIFY(!canvas.context());
    const QColor color = canvas.grab().toImage().pixelColor(200, 150);
    QCOMPARE(color.saturation(), 0);
    canvas.updateHistogram();
    QVERIFY(!canvas.colorAt(QPoint(1, 1)).isValid());
}

void TestCanvas::canvas_deleted_isForgottenByItsContext()
{
    VeskContext context;
    {
        VeskCanvas canvas;
        context.setCanvas(&canvas);
        canvas.attachContext(&context);
    }
    QVERIFY(!context.getCanvas());
}

void TestCanvas::selection_deleted_isForgotten()
{
    Document document(filled(kCanvasSize, Qt::red));
    auto selection = std::make_unique<VeskSelection>(nullptr, 400, 300);
    selection->selectAll();
    document.canvas.setSelection(selection.get());
    document.canvas.startCanvasTimer(50);
    document.show();
    selection.reset();
    QVERIFY(!document.canvas.selection());
    QCOMPARE(document.shown().pixelColor(0, 0), QColor(Qt::red));
}

// --- Pointer, selection, histogram ---

void TestCanvas::pointer_reportsPixelAndColour()
{
    Document document(twoHalves(QSize(4000, 3000)));
    QSignalSpy moves(&document.canvas, &VeskCanvas::pointerMoved);
    moveMouse(document.canvas, QPoint(300, 150), Qt::NoButton);
    QCOMPARE(moves.count(), 1);
    QCOMPARE(moves.at(0).at(0).toPoint(), QPoint(3000, 1500));
    QCOMPARE(moves.at(0).at(1).value<QColor>(), QColor(Qt::blue));
}

void TestCanvas::pointer_outsideOfTheDocument_reportsNothing()
{
    Document document(filled(QSize(100, 100), Qt::red));
    QSignalSpy moves(&document.canvas, &VeskCanvas::pointerMoved);
    moveMouse(document.canvas, QPoint(1, 1), Qt::NoButton);
    QCOMPARE(moves.last().at(0).toPoint(), QPoint(-1, -1));
    QVERIFY(!moves.last().at(1).value<QColor>().isValid());

    moveMouse(document.canvas, QPoint(200, 150), Qt::NoButton);
    QCOMPARE(moves.last().at(0).toPoint(), QPoint(50, 50));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&document.canvas, &leave);
    QCOMPARE(moves.last().at(0).toPoint(), QPoint(-1, -1));
}

/// Ctrl+0 and Ctrl+1 leave the pointer where it is.
void TestCanvas::pointer_resting_isReportedAgainWhenThePictureMovesUnderIt()
{
    Document document(twoHalves(QSize(4000, 3000)));
    document.canvas.zoomToFit();
    moveMouse(document.canvas, QPoint(300, 150), Qt::NoButton);
    QSignalSpy moves(&document.canvas, &VeskCanvas::pointerMoved);
    document.canvas.zoomToActualSize();
    const QPointF under = document.canvas.toDocument(QPointF(300, 150));
    QCOMPARE(moves.last().at(0).toPoint(), QPoint(qFloor(under.x()), qFloor(under.y())));
    document.canvas.zoomToFit();
    QCOMPARE(moves.last().at(0).toPoint(), QPoint(3000, 1500));

    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&document.canvas, &leave);
    moves.clear();
    document.canvas.zoomToActualSize();
    QVERIFY(moves.isEmpty());
}

void TestCanvas::pointer_resting_isReportedAgainWhenTheLayersChange()
{
    Document document(filled(kCanvasSize, Qt::red));
    moveMouse(document.canvas, QPoint(200, 150), Qt::NoButton);
    QSignalSpy moves(&document.canvas, &VeskCanvas::pointerMoved);
    document.context.getLayerManager()->layerAt(0)->setVisible(false);
    QCOMPARE(moves.size(), 1);
    QCOMPARE(moves.last().at(1).value<QColor>().alpha(), 0);
}

void TestCanvas::selection_isOutlined()
{
    Document document(filled(kCanvasSize, Qt::red));
    VeskSelection selection(nullptr, 400, 300);
    document.canvas.setSelection(&selection);
    QCOMPARE(document.shown(), filled(kCanvasSize, Qt::red)); // nothing selected, no outline
    selection.setRect(QRect(50, 60, 100, 80));
    const QImage shown = document.shown();
    for (const QPoint &corner : {QPoint(50, 60), QPoint(149, 60), QPoint(149, 139)})
        QVERIFY(shown.pixelColor(corner) != QColor(Qt::red));
    QCOMPARE(shown.pixelColor(100, 100), QColor(Qt::red));
    QCOMPARE(shown.pixelColor(48, 60), QColor(Qt::red));
    selection.clear();
    QCOMPARE(document.shown(), filled(kCanvasSize, Qt::red));
}

void TestCanvas::canvasTimer_movesTheOutlineOnly()
{
    struct PaintedArea : QObject
    {
        QRegion region;
        int paints = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::Paint) {
                region += static_cast<QPaintEvent *>(event)->region();
                ++paints;
            }
            return false;
        }
    } painted;
    Document document(filled(kCanvasSize, Qt::red));
    VeskSelection selection(nullptr, 400, 300);
    selection.setRect(QRect(50, 60, 100, 80));
    document.canvas.setSelection(&selection);
    document.show();
    const QImage before = document.shown();
    QTest::qWait(0);
    document.canvas.installEventFilter(&painted);
    document.canvas.startCanvasTimer(50);
    QVERIFY(document.canvas.isCanvasTimerActive());
    QTRY_VERIFY(painted.paints >= 2);
    QVERIFY(!painted.region.contains(QPoint(100, 100)));
    QVERIFY(!painted.region.contains(QPoint(10, 10)));
    QVERIFY(painted.region.contains(QPoint(50, 100)));
    QVERIFY(document.shown() != before);
}

void TestCanvas::canvasTimer_zeroInterval_doesNotFloodTheLoop()
{
    struct TimerCounter : QObject
    {
        int ticks = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            ticks += event->type() == QEvent::Timer;
            return false;
        }
    } counter;
    Document document(filled(kCanvasSize, Qt::red));
    VeskSelection selection(nullptr, 400, 300);
    selection.selectAll();
    document.canvas.setSelection(&selection);
    document.show();
    document.canvas.startCanvasTimer(0);
    document.canvas.installEventFilter(&counter);
    // A timer without a pause would tick at every turn of the loop.
    for (int i = 0; i < 50; ++i)
        QCoreApplication::processEvents();
    QVERIFY(counter.ticks < 25);
    QTRY_VERIFY(counter.ticks >= 1);
}

void TestCanvas::canvasTimer_stops()
{
    VeskCanvas canvas;
    QVERIFY(!canvas.isCanvasTimerActive());
    canvas.startCanvasTimer(-5);
    QVERIFY(canvas.isCanvasTimerActive());
    canvas.stopCanvasTimer();
    QVERIFY(!canvas.isCanvasTimerActive());
}

void TestCanvas::updateHistogram_countsTheDocumentAndTells()
{
    Document document(twoHalves(QSize(400, 300)));
    QSignalSpy changes(&document.canvas, &VeskCanvas::histogramChanged);
    QCOMPARE(document.canvas.histogram().red[255], 0U);
    document.canvas.updateHistogram();
    QCOMPARE(changes.count(), 1);
    QCOMPARE(document.canvas.histogram().red[255], 60000U);
    QCOMPARE(document.canvas.histogram().blue[255], 60000U);
    QCOMPARE(document.canvas.histogram().green[0], 120000U);
}

QTEST_MAIN(TestCanvas)
#include "tst_VeskCanvas.moc"
