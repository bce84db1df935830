#include <VeskCanvas.h>

#include <VeskContext.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>
#include <VeskSelection.h>

#include <QtTest>

#include <memory>

namespace {

constexpr QSize kDocument(1600, 1200);
const QColor kRed(200, 10, 10);
const QColor kBlue(10, 10, 200);
constexpr QPoint kMiddle(200, 150);

QImage pattern(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            picture.setPixel(x, y, qRgb(x % 256, y % 256, (x ^ y) % 256));
    }
    return picture;
}

QImage filled(QSize size, const QColor &colour)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

} // namespace

/// What a canvas of 400 x 300 shows instead of its layers.
class TestCanvasPreview : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        context = std::make_unique<VeskContext>();
        layer = new VeskLayer(QStringLiteral("layer"));
        layer->setVeskPictureHost(new VeskPictureHost(pattern(kDocument)));
        context->getLayerManager()->addLayer(layer, true);
        canvas = std::make_unique<VeskCanvas>();
        canvas->resize(400, 300);
        canvas->reSizeCanvas(kDocument.width(), kDocument.height(), true);
        context->setCanvas(canvas.get());
        canvas->attachContext(context.get());
        canvas->show();
        QVERIFY(QTest::qWaitForWindowExposed(canvas.get()));
        settle();
    }
    void cleanup()
    {
        canvas.reset();
        context.reset();
    }

    void sight_fitted_hasAllPixels();
    void sight_ofAnotherSize_isFitted();
    void sight_atActualSize_hasThePixelsInView();
    void sight_enlarged_hasNoMorePixelsThanThereAre();

    void preview_isSeenInItsPlace();
    void preview_atActualSize_isWhatTheLayersWouldShow();
    void preview_ofAnotherSize_hasNoOutline();
    void preview_ofAnEarlierView_isNotShown();
    void preview_viewMoved_goes();
    void preview_resized_goes();
    void preview_ofAnotherSize_staysWhileTheViewMoves();

    void end_withoutChange_showsTheLayersAtOnce();
    void end_afterAChange_waitsForTheReducedCopies();
    void end_atActualSize_waitsForNothing();
    void end_changedOnceMore_showsTheLayersAtOnce();
    void documentChangesBeforeTheEnd_leavesThePreview();
    void documentGoes_takesThePreviewAlong();
    void otherDocument_isShown();

    void renderer_isAskedWhenTheReducedCopiesAreThere();
    void renderer_atActualSize_isNotAsked();
    void rendition_isSeenUntilTheViewMoves();
    void rendition_isSeenUntilTheLayersChange();
    void rendition_late_isNotSeen();
    void rendition_behindAPreview_waits();
    void end_withARenderer_waitsForItsAnswer();
    void end_withoutAnAnswer_showsTheLayers();

private:
    /// Until all reduced copies are there.
    void settle()
    {
        show();
        canvas->endPreview();
        QTRY_VERIFY(!canvas->preview());
    }
    QImage shown() { return canvas->grab().toImage().convertToFormat(QImage::Format_RGB32); }
    void show(QSize document = kDocument)
    {
        const VeskCanvas::Sight sight = canvas->sight(document);
        const QImage red = filled(sight.size, kRed);
        canvas->showPreview({sight, red, red});
    }
    void setPicture(const QImage &picture)
    {
        layer->setVeskPictureHost(new VeskPictureHost(picture));
    }
    bool isRed(QPoint place) { return shown().pixelColor(place) == kRed; }

    /// Answers are given by answer().
    void setRenderer()
    {
        asked = {};
        canvas->setRenderer([this](int number) { asked.append(number); });
    }
    void answer(int number)
    {
        const VeskCanvas::Sight sight = canvas->sight(kDocument);
        const QImage blue = filled(sight.size, kBlue);
        canvas->showRendition(number, {sight, blue, blue});
    }
    bool isBlue(QPoint place) { return shown().pixelColor(place) == kBlue; }

    QList<int> asked;
    std::unique_ptr<VeskContext> context;
    VeskLayer *layer = nullptr;
    std::unique_ptr<VeskCanvas> canvas;
};

void TestCanvasPreview::sight_fitted_hasAllPixels()
{
    const VeskCanvas::Sight sight = canvas->sight(kDocument);
    QCOMPARE(sight.document, kDocument);
    QCOMPARE(sight.pixels, QRect(QPoint(), kDocument));
    QCOMPARE(sight.size, QSize(400, 300));
    QCOMPARE(sight.place, QRectF(0, 0, 400, 300));
}

void TestCanvasPreview::sight_ofAnotherSize_isFitted()
{
    canvas->zoomToActualSize();
    const VeskCanvas::Sight tall = canvas->sight({1200, 1600});
    QCOMPARE(tall.pixels, QRect(0, 0, 1200, 1600));
    QCOMPARE(tall.size, QSize(225, 300));
    QCOMPARE(tall.place, QRectF(87, 0, 225, 300));
    const VeskCanvas::Sight small = canvas->sight({100, 80});
    QCOMPARE(small.size, QSize(100, 80));
    QCOMPARE(small.place, QRectF(150, 110, 100, 80));
    QCOMPARE(canvas->zoom(), 1.0);
    QCOMPARE(canvas->canvasSize(), kDocument);
}

void TestCanvasPreview::sight_atActualSize_hasThePixelsInView()
{
    canvas->zoomToActualSize();
    const VeskCanvas::Sight sight = canvas->sight(kDocument);
    QCOMPARE(sight.pixels, QRect(600, 450, 400, 300));
    QCOMPARE(sight.size, QSize(400, 300));
    QCOMPARE(sight.place, QRectF(0, 0, 400, 300));
}

void TestCanvasPreview::sight_enlarged_hasNoMorePixelsThanThereAre()
{
    canvas->showPlace(8, {800, 600});
    const VeskCanvas::Sight sight = canvas->sight(kDocument);
    QCOMPARE(sight.size, sight.pixels.size());
    QVERIFY(sight.size.width() <= 51 && sight.size.height() <= 39);
    QCOMPARE(sight.place.width(), sight.size.width() * 8.0);
}

void TestCanvasPreview::preview_isSeenInItsPlace()
{
    const QColor around = [this] {
        canvas->reSizeCanvas(10, 10, true);
        const QColor colour = shown().pixelColor(2, 2);
        canvas->reSizeCanvas(kDocument.width(), kDocument.height(), true);
        return colour;
    }();
    show({1200, 1600});
    QVERIFY(canvas->preview());
    const QImage seen = shown();
    for (const int x : {87, 200, 311})
        QCOMPARE(seen.pixelColor(x, 150), kRed);
    for (const int x : {0, 86, 312, 399})
        QCOMPARE(seen.pixelColor(x, 150), around);
}

void TestCanvasPreview::preview_atActualSize_isWhatTheLayersWouldShow()
{
    canvas->showPlace(1, {700, 500});
    const QImage before = shown();
    const VeskCanvas::Sight sight = canvas->sight(kDocument);
    const QImage picture = pattern(kDocument).copy(sight.pixels);
    setPicture(filled(kDocument, Qt::white));
    QVERIFY(shown() != before);
    canvas->showPreview({sight, picture, picture});
    QCOMPARE(shown(), before);
}

void TestCanvasPreview::preview_ofAnotherSize_hasNoOutline()
{
    VeskSelection selection(nullptr, kDocument.width(), kDocument.height());
    selection.setRect({400, 300, 800, 600});
    canvas->setSelection(&selection);
    show();
    QVERIFY(!isRed({100, 150})); // the outline
    show({1200, 1600});
    QVERIFY(isRed({100, 150}));
}

void TestCanvasPreview::preview_ofAnEarlierView_isNotShown()
{
    const VeskCanvas::Sight sight = canvas->sight(kDocument);
    canvas->zoomIn();
    const QImage red = filled(sight.size, kRed);
    canvas->showPreview({sight, red, red});
    QVERIFY(!canvas->preview());
}

void TestCanvasPreview::preview_viewMoved_goes()
{
    canvas->zoomToActualSize();
    show();
    QVERIFY(isRed({200, 150}));
    QTest::keyClick(canvas.get(), Qt::Key_Right);
    QVERIFY(!canvas->preview());
    QVERIFY(!isRed({200, 150}));
}

void TestCanvasPreview::preview_resized_goes()
{
    show();
    canvas->resize(500, 300);
    QVERIFY(!isRed({200, 150}));
}

/// It will be fitted wherever the view is until then.
void TestCanvasPreview::preview_ofAnotherSize_staysWhileTheViewMoves()
{
    show({1200, 1600});
    canvas->zoomIn();
    QVERIFY(isRed({200, 150}));
}

void TestCanvasPreview::end_withoutChange_showsTheLayersAtOnce()
{
    const QImage before = shown();
    show();
    canvas->endPreview();
    QVERIFY(!canvas->preview());
    QCOMPARE(shown(), before);
}

void TestCanvasPreview::end_afterAChange_waitsForTheReducedCopies()
{
    show();
    setPicture(pattern(kDocument));
    canvas->endPreview();
    QVERIFY(isRed({200, 150})); // not roughly scaled layers
    QTRY_VERIFY(!canvas->preview());
    const QImage once = shown();
    settle();
    QCOMPARE(once, shown());
}

void TestCanvasPreview::end_atActualSize_waitsForNothing()
{
    canvas->zoomToActualSize();
    show();
    setPicture(filled(kDocument, Qt::white));
    canvas->endPreview();
    QVERIFY(!canvas->preview());
    QCOMPARE(shown().pixelColor(200, 150), QColor(Qt::white));
}

void TestCanvasPreview::end_changedOnceMore_showsTheLayersAtOnce()
{
    show();
    setPicture(pattern(kDocument));
    canvas->endPreview();
    setPicture(filled(kDocument, Qt::white));
    QVERIFY(!canvas->preview());
    QCOMPARE(shown().pixelColor(200, 150), QColor(Qt::white));
}

void TestCanvasPreview::documentChangesBeforeTheEnd_leavesThePreview()
{
    show();
    setPicture(filled(kDocument, Qt::white));
    QTest::qWait(100);
    QVERIFY(isRed({200, 150}));
    show({1200, 1600});
    setPicture(pattern({1200, 1600}));
    canvas->reSizeCanvas(1200, 1600, true);
    QVERIFY(isRed({200, 150}));
}

void TestCanvasPreview::documentGoes_takesThePreviewAlong()
{
    show();
    context.reset();
    QVERIFY(!canvas->preview());
}

void TestCanvasPreview::otherDocument_isShown()
{
    show();
    VeskContext other;
    canvas->attachContext(&other);
    QVERIFY(!canvas->preview());
    canvas->attachContext(context.get());
    show();
    canvas->resetCanvas();
    QVERIFY(!canvas->preview());
}

void TestCanvasPreview::renderer_isAskedWhenTheReducedCopiesAreThere()
{
    setRenderer();
    QTRY_COMPARE(asked.size(), 1);
    QTest::qWait(50);
    QCOMPARE(asked.size(), 1); // once is enough
    setPicture(filled(kDocument, Qt::white));
    QCOMPARE(asked.size(), 1);
    QTRY_COMPARE(asked.size(), 2);
}

void TestCanvasPreview::renderer_atActualSize_isNotAsked()
{
    canvas->zoomToActualSize();
    setRenderer();
    setPicture(filled(kDocument, Qt::white));
    QTest::qWait(50);
    QVERIFY(asked.isEmpty());
    canvas->setZoom(0.7); // has no reduced copies
    QTRY_COMPARE(asked.size(), 1);
}

void TestCanvasPreview::rendition_isSeenUntilTheViewMoves()
{
    setRenderer();
    QTRY_COMPARE(asked.size(), 1);
    answer(asked.last());
    QVERIFY(isBlue(kMiddle));
    QVERIFY(!canvas->preview());
    canvas->setZoom(0.4);
    QVERIFY(!isBlue(kMiddle));
    QTRY_COMPARE(asked.size(), 2);
    answer(asked.last());
    QVERIFY(isBlue(kMiddle));
}

void TestCanvasPreview::rendition_isSeenUntilTheLayersChange()
{
    setRenderer();
    QTRY_COMPARE(asked.size(), 1);
    answer(asked.last());
    setPicture(filled(kDocument, Qt::white));
    QCOMPARE(shown().pixelColor(kMiddle), QColor(Qt::white));
}

void TestCanvasPreview::rendition_late_isNotSeen()
{
    setRenderer();
    QTRY_COMPARE(asked.size(), 1);
    setPicture(pattern(kDocument));
    answer(asked.first());
    QVERIFY(!isBlue(kMiddle));
    QTRY_COMPARE(asked.size(), 2);
    canvas->zoomIn();
    canvas->zoomToFit();
    answer(asked.last());
    QVERIFY(!isBlue(kMiddle));
}

void TestCanvasPreview::rendition_behindAPreview_waits()
{
    setRenderer();
    QTRY_COMPARE(asked.size(), 1);
    show();
    answer(asked.last());
    QVERIFY(isRed(kMiddle));
    canvas->endPreview();
    QVERIFY(isBlue(kMiddle));
}

/// So that nothing soft is seen between two that are sharp.
void TestCanvasPreview::end_withARenderer_waitsForItsAnswer()
{
    setRenderer();
    QTRY_COMPARE(asked.size(), 1);
    answer(asked.last());
    show();
    setPicture(pattern(kDocument));
    canvas->endPreview();
    QTRY_COMPARE(asked.size(), 2);
    QTest::qWait(50);
    QVERIFY(isRed(kMiddle));
    answer(asked.last());
    QVERIFY(isBlue(kMiddle));
}

void TestCanvasPreview::end_withoutAnAnswer_showsTheLayers()
{
    setRenderer();
    QTRY_COMPARE(asked.size(), 1);
    show();
    setPicture(filled(kDocument, Qt::white));
    canvas->endPreview();
    QTRY_COMPARE(asked.size(), 2);
    canvas->showRendition(asked.last(), {});
    QCOMPARE(shown().pixelColor(kMiddle), QColor(Qt::white));
    show();
    canvas->endPreview(); // nobody is asked any more
    QVERIFY(!canvas->preview());
}

QTEST_MAIN(TestCanvasPreview)
#include "tst_canvas_preview.moc"
