#include <CanvasView.h>

#include <QtTest>

namespace {

constexpr double kMinimum = 1.0 / 128;
constexpr double kMaximum = 32;

CanvasView viewOf(const QSize &document, const QSize &viewport)
{
    CanvasView view(kMinimum, kMaximum);
    view.setViewport(viewport);
    view.setDocument(document);
    return view;
}

} // namespace

class TestCanvasView : public QObject
{
    Q_OBJECT

private slots:
    void fit_showsTheWholeDocument_data();
    void fit_showsTheWholeDocument();
    void fit_isKeptThroughResizes();
    void smallDocument_isCentred();
    void setZoom_keepsWhatIsAtTheAnchor();
    void setZoom_outOfBounds_isMovedInside();
    void setZoom_endsTheFit();
    void panBy_stopsAtTheEdges();
    void origin_isAWholePixel();
    void resize_keepsTheMiddle();
    void positions_mapThereAndBack();
    void documentPixels_coverThePartAndStayInside();
    void emptyDocumentOrViewport_hasNoPixels();
};

void TestCanvasView::fit_showsTheWholeDocument_data()
{
    QTest::addColumn<QSize>("document");
    QTest::addColumn<QSize>("viewport");
    QTest::addColumn<double>("zoom");
    QTest::newRow("wide") << QSize(2000, 500) << QSize(400, 300) << 0.2;
    QTest::newRow("tall") << QSize(500, 2000) << QSize(400, 300) << 0.15;
    QTest::newRow("small ones are not enlarged") << QSize(100, 80) << QSize(400, 300) << 1.0;
    QTest::newRow("huge, at the lower bound") << QSize(1000000, 10) << QSize(400, 300) << kMinimum;
}

void TestCanvasView::fit_showsTheWholeDocument()
{
    QFETCH(QSize, document);
    QFETCH(QSize, viewport);
    QFETCH(double, zoom);
    CanvasView view = viewOf(document, viewport);
    view.setZoom(7, QPointF());
    view.fit();
    QCOMPARE(view.zoom(), zoom);
    QVERIFY(view.isFitted());
    if (zoom > kMinimum)
        QVERIFY(QRect(QPoint(0, 0), viewport).contains(view.documentRect()));
}

void TestCanvasView::fit_isKeptThroughResizes()
{
    CanvasView view = viewOf(QSize(2000, 1000), QSize(400, 300));
    view.setViewport(QSize(800, 600));
    QCOMPARE(view.zoom(), 0.4);
    view.setDocument(QSize(4000, 1000));
    QCOMPARE(view.zoom(), 0.2);
}

void TestCanvasView::smallDocument_isCentred()
{
    const CanvasView view = viewOf(QSize(100, 80), QSize(400, 300));
    QCOMPARE(view.documentRect(), QRect(150, 110, 100, 80));
}

void TestCanvasView::setZoom_keepsWhatIsAtTheAnchor()
{
    CanvasView view = viewOf(QSize(4000, 3000), QSize(400, 300));
    view.setZoom(1, QPointF(200, 150));
    const QPointF anchor(130, 90);
    const QPointF before = view.toDocument(anchor);
    for (const double zoom : {1.7, 3.0, 9.5, 2.0}) {
        view.setZoom(zoom, anchor, before);
        const QPointF now = view.toViewport(before);
        QVERIFY2((now - anchor).manhattanLength() <= 1.0, qPrintable(QString::number(zoom)));
    }
}

void TestCanvasView::setZoom_outOfBounds_isMovedInside()
{
    CanvasView view = viewOf(QSize(4000, 3000), QSize(400, 300));
    view.setZoom(1e9, QPointF());
    QCOMPARE(view.zoom(), kMaximum);
    view.setZoom(-3, QPointF());
    QCOMPARE(view.zoom(), kMinimum);
    view.setZoom(qQNaN(), QPointF());
    QCOMPARE(view.zoom(), kMinimum);
}

void TestCanvasView::setZoom_endsTheFit()
{
    CanvasView view = viewOf(QSize(4000, 3000), QSize(400, 300));
    view.setZoom(0.5, QPointF());
    QVERIFY(!view.isFitted());
    view.setViewport(QSize(800, 600));
    QCOMPARE(view.zoom(), 0.5);
}

void TestCanvasView::panBy_stopsAtTheEdges()
{
    CanvasView view = viewOf(QSize(1000, 1000), QSize(400, 300));
    view.setZoom(1, QPointF());
    view.panBy(QPointF(1e6, 1e6));
    QCOMPARE(view.documentRect().topLeft(), QPoint(0, 0));
    view.panBy(QPointF(-1e6, -1e6));
    QCOMPARE(view.documentRect().bottomRight(), QPoint(399, 299));
}

void TestCanvasView::origin_isAWholePixel()
{
    CanvasView view = viewOf(QSize(1001, 777), QSize(400, 301));
    for (const double zoom : {0.3, 1.0, 1.37, 4.0}) {
        view.setZoom(zoom, QPointF(33.3, 44.7));
        view.panBy(QPointF(0.4, -7.3));
        const QPointF origin = view.toViewport(QPointF(0, 0));
        QCOMPARE(origin, QPointF(origin.toPoint()));
    }
}

void TestCanvasView::resize_keepsTheMiddle()
{
    CanvasView view = viewOf(QSize(4000, 3000), QSize(400, 300));
    view.setZoom(1, QPointF());
    view.center();
    view.setViewport(QSize(600, 500));
    QCOMPARE(view.toDocument(QPointF(300, 250)), QPointF(2000, 1500));
}

void TestCanvasView::positions_mapThereAndBack()
{
    CanvasView view = viewOf(QSize(4000, 3000), QSize(400, 300));
    view.setZoom(0.37, QPointF(10, 20));
    const QPointF position(123.5, 77.25);
    const QPointF back = view.toViewport(view.toDocument(position));
    QVERIFY((back - position).manhattanLength() < 1e-9);
}

void TestCanvasView::documentPixels_coverThePartAndStayInside()
{
    CanvasView view = viewOf(QSize(1000, 900), QSize(400, 300));
    view.setZoom(4, QPointF());
    view.panBy(QPointF(-2, -6));
    QCOMPARE(view.documentPixels(QRect(0, 0, 400, 300)), QRect(0, 1, 101, 76));
    view.panBy(QPointF(-1e6, -1e6));
    QCOMPARE(view.documentPixels(QRect(-50, -50, 1000, 1000)).bottomRight(), QPoint(999, 899));
}

void TestCanvasView::emptyDocumentOrViewport_hasNoPixels()
{
    const CanvasView noDocument = viewOf(QSize(0, 0), QSize(400, 300));
    QVERIFY(noDocument.documentPixels(QRect(0, 0, 400, 300)).isEmpty());
    QVERIFY(noDocument.documentRect().isEmpty());
    QCOMPARE(noDocument.zoom(), 1.0);

    CanvasView noViewport = viewOf(QSize(100, 100), QSize(0, 0));
    QCOMPARE(noViewport.zoom(), 1.0);
    QVERIFY(noViewport.documentPixels(QRect()).isEmpty());

    CanvasView negative = viewOf(QSize(-5, 10), QSize(400, 300));
    QVERIFY(negative.document().isEmpty());
}

QTEST_GUILESS_MAIN(TestCanvasView)
#include "tst_CanvasView.moc"
