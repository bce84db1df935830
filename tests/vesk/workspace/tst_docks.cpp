// What stands around the document: histogram, layers and the status bar.

#include "EditorStatusBar.h"
#include "HistogramDock.h"
#include "HistogramView.h"
#include "LayerDock.h"
#include "picture_document.h"

#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskGlobalSettings.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>
#include <VeskUIController.h>

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QTest>

class TestDocks : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void histogram_countsTheDocumentInFront();
    void histogram_followsTheDocumentsLayers();
    void histogram_countsAnewOnTheToolsNotification();
    void histogram_takesWhatTheCanvasHasCounted();
    void histogram_hidden_countsNothing();
    void histogram_visibility_isTheSetting();
    void layers_areListedUppermostFirst();
    void layers_untick_hidesTheLayerAndMarksTheDocument();
    void layers_offAndOn_leavesTheFileUnmodified();
    void layers_offAndOn_ofUnsavedWork_leavesItModified();
    void layers_onAfterSavingWithoutIt_modifiesTheFile();
    void layers_choice_isTheCurrentLayer();
    void statusBar_showsSizeZoomAndColour();
    void statusBar_namesWhatIsOpened();

private:
    static QImage plain(QRgb color)
    {
        QImage image(10, 5, QImage::Format_RGB32);
        image.fill(color);
        return image;
    }
    void addLayer(const QString &name, QRgb color)
    {
        auto *layer = new VeskLayer(name);
        layer->setVeskPictureHost(new VeskPictureHost(plain(color)));
        document->getLayerManager()->addLayer(layer, true);
    }

    std::unique_ptr<QMainWindow> window;
    std::unique_ptr<VeskContext> document;
};

void TestDocks::init()
{
    VeskGlobalSettings::getInstance()->setHistogramVisible(true);
    window = std::make_unique<QMainWindow>();
    window->show();
    document.reset(document::create(plain(qRgb(10, 20, 30)), {}, {}, window.get()));
}

void TestDocks::cleanup()
{
    window.reset();
    document.reset();
}

void TestDocks::histogram_countsTheDocumentInFront()
{
    auto *dock = new HistogramDock(window.get());
    window->addDockWidget(Qt::RightDockWidgetArea, dock);
    dock->showDocument(document.get());
    QTRY_COMPARE(dock->view().histogram().red[10], 50U);
    QCOMPARE(dock->view().histogram().blue[30], 50U);
    dock->showDocument(nullptr);
    QTRY_COMPARE(dock->view().histogram().red[10], 0U);
}

void TestDocks::histogram_followsTheDocumentsLayers()
{
    auto *dock = new HistogramDock(window.get());
    window->addDockWidget(Qt::RightDockWidgetArea, dock);
    dock->showDocument(document.get());
    addLayer(QStringLiteral("over"), qRgb(99, 0, 0));
    QTRY_COMPARE(dock->view().histogram().red[99], 50U);
    QCOMPARE(dock->view().histogram().red[10], 0U);
}

void TestDocks::histogram_countsAnewOnTheToolsNotification()
{
    auto *dock = new HistogramDock(window.get());
    window->addDockWidget(Qt::RightDockWidgetArea, dock);
    dock->showDocument(document.get());
    QTRY_COMPARE(dock->view().histogram().red[10], 50U);
    const_cast<HistogramView &>(dock->view()).clear();
    VeskUIController::getInstance()->notifyUI(QStringLiteral("something else"), {});
    VeskUIController::getInstance()->notifyUI(QStringLiteral("initHistogramWidget"), {});
    QTRY_COMPARE(dock->view().histogram().red[10], 50U);
}

void TestDocks::histogram_takesWhatTheCanvasHasCounted()
{
    auto *dock = new HistogramDock(window.get());
    window->addDockWidget(Qt::RightDockWidgetArea, dock);
    dock->showDocument(document.get());
    document->getCanvas()->updateHistogram();
    QCOMPARE(dock->view().histogram().green[20], 50U); // at once
}

void TestDocks::histogram_hidden_countsNothing()
{
    auto *dock = new HistogramDock(window.get());
    window->addDockWidget(Qt::RightDockWidgetArea, dock);
    dock->hide();
    dock->showDocument(document.get());
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QCOMPARE(dock->view().histogram().red[10], 0U);
    dock->show();
    QTRY_COMPARE(dock->view().histogram().red[10], 50U);
}

void TestDocks::histogram_visibility_isTheSetting()
{
    auto *dock = new HistogramDock(window.get());
    window->addDockWidget(Qt::RightDockWidgetArea, dock);
    QTRY_VERIFY(dock->isVisible());
    dock->toggleViewAction()->trigger();
    QVERIFY(!VeskGlobalSettings::getInstance()->isHistogramVisible());
    VeskGlobalSettings::getInstance()->setHistogramVisible(true);
    QVERIFY(dock->isVisible());
    window->hide(); // closing the window is no choice about the histogram
    QVERIFY(VeskGlobalSettings::getInstance()->isHistogramVisible());
}

void TestDocks::layers_areListedUppermostFirst()
{
    addLayer(QStringLiteral("over"), qRgb(0, 0, 0));
    document->getLayerManager()->layerAt(1)->setAlpha(0.5F);
    LayerDock dock;
    dock.showDocument(document.get());
    const auto *list = dock.findChild<QListWidget *>();
    QCOMPARE(list->count(), 2);
    QCOMPARE(list->item(0)->text(), QStringLiteral("over — 50 %"));
    QCOMPARE(list->item(1)->text(), QStringLiteral("Background — 100 %"));
    QCOMPARE(list->currentRow(), 0);
    dock.showDocument(nullptr);
    QCOMPARE(list->count(), 0);
}

void TestDocks::layers_untick_hidesTheLayerAndMarksTheDocument()
{
    LayerDock dock;
    dock.showDocument(document.get());
    auto *list = dock.findChild<QListWidget *>();
    QVERIFY(!document->isSaveAble());
    list->item(0)->setCheckState(Qt::Unchecked);
    QVERIFY(!document->getLayerManager()->layerAt(0)->isVisible());
    QVERIFY(document->isSaveAble());
    QCoreApplication::processEvents(); // the list is built anew
    QCOMPARE(list->item(0)->checkState(), Qt::Unchecked);
}

void TestDocks::layers_offAndOn_leavesTheFileUnmodified()
{
    addLayer(QStringLiteral("over"), qRgb(0, 0, 0));
    LayerDock dock;
    dock.showDocument(document.get());
    const auto tick = [&dock](int row, Qt::CheckState state) {
        dock.findChild<QListWidget *>()->item(row)->setCheckState(state);
        QCoreApplication::processEvents(); // the list is built anew
    };
    tick(0, Qt::Unchecked);
    tick(1, Qt::Unchecked);
    tick(0, Qt::Checked);
    QVERIFY(document->isSaveAble());
    tick(1, Qt::Checked);
    QVERIFY(!document->isSaveAble());
}

void TestDocks::layers_offAndOn_ofUnsavedWork_leavesItModified()
{
    document->setSaveAble(true);
    document::setLayerVisible(*document, 0, false);
    document::setLayerVisible(*document, 0, true);
    QVERIFY(document->isSaveAble());
}

void TestDocks::layers_onAfterSavingWithoutIt_modifiesTheFile()
{
    addLayer(QStringLiteral("over"), qRgb(0, 0, 0));
    document::setLayerVisible(*document, 1, false);
    document::markSaved(*document);
    document->setSaveAble(true); // by a tool
    document::setLayerVisible(*document, 1, true);
    QVERIFY(document->isSaveAble());
    document::setLayerVisible(*document, 1, false);
    QVERIFY(!document->isSaveAble()); // what the file holds
}

void TestDocks::layers_choice_isTheCurrentLayer()
{
    addLayer(QStringLiteral("over"), qRgb(0, 0, 0));
    LayerDock dock;
    dock.showDocument(document.get());
    auto *list = dock.findChild<QListWidget *>();
    list->setCurrentRow(1);
    QCOMPARE(document->getLayerManager()->getCurrentIndex(), 0);
    QVERIFY(!document->isSaveAble());
}

void TestDocks::statusBar_showsSizeZoomAndColour()
{
    EditorStatusBar bar;
    VeskCanvas *canvas = document->getCanvas();
    bar.showCanvas(canvas);
    const auto text = [&bar](const char *name) {
        return bar.findChild<QLabel *>(QLatin1String(name))->text();
    };
    QCOMPARE(text("sizeLabel"), QStringLiteral("10 × 5"));
    canvas->setZoom(2);
    QTRY_COMPARE(text("zoomLabel"), QStringLiteral("200 %"));
    Q_EMIT canvas->pointerMoved({3, 4}, QColor(10, 20, 30));
    QCOMPARE(text("pointerLabel"), QStringLiteral("3, 4   R 10 G 20 B 30"));
    Q_EMIT canvas->pointerMoved({-1, -1}, {});
    QCOMPARE(text("pointerLabel"), QString());
    QImage deep(QSize(10, 5), QImage::Format_RGBX64);
    deep.fill(QColor::fromRgba64(1000, 2000, 65535));
    auto *layer = new VeskLayer(QStringLiteral("deep"));
    layer->setVeskPictureHost(new VeskPictureHost(deep));
    document->getLayerManager()->addLayer(layer, true);
    Q_EMIT canvas->pointerMoved({3, 4}, canvas->colorAt({3, 4}));
    QCOMPARE(text("pointerLabel"), QStringLiteral("3, 4   R 1000 G 2000 B 65535"));
    bar.showCanvas(nullptr);
    QCOMPARE(text("sizeLabel"), QString());
}

void TestDocks::statusBar_namesWhatIsOpened()
{
    EditorStatusBar bar;
    bar.show();
    const auto *label = bar.findChild<QLabel *>(QStringLiteral("loadingLabel"));
    QVERIFY(!label->isVisible());
    bar.showLoading(QStringLiteral("x.jpg"), 2, 5);
    QVERIFY(label->isVisible());
    QCOMPARE(label->text(), QStringLiteral("Opening x.jpg (2 of 5)…"));
    bar.hideLoading();
    QVERIFY(!label->isVisible());
}

QTEST_MAIN(TestDocks)
#include "tst_docks.moc"
