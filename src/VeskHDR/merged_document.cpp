#include "merged_document.h"

#include <IVeskTool.h>
#include <VeskActionManager.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskContextManager.h>
#include <VeskGlobalSettings.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskLog.h>
#include <VeskPictureHost.h>
#include <VeskPictureReader.h>
#include <VeskSelection.h>
#include <VeskUIController.h>

#include <QImage>
#include <QPointer>
#include <QVariant>

namespace {

constexpr int kSelectionTimerMilliseconds = 50;

// The editor reacts to every step, and may take away what it is told of. So each step looks anew
// at what is still there, and leaves out the rest.
using Document = QPointer<VeskContext>;
using Canvas = QPointer<VeskCanvas>;

void detachTool(const Document &document)
{
    IVeskTool *tool = document ? document->getCurrentTool() : nullptr;
    if (tool)
        tool->disActive();
    if (document)
        document->setCurrentTool(nullptr);
}

void openDocument(VeskContext *document)
{
    VeskContextManager *documents = VeskContextManager::getInstance();
    documents->addContext(document);
    documents->setCurrentContext(documents->indexOfContext(document));
}

void closeDocument(VeskContext *document)
{
    VeskContextManager::getInstance()->removeContext(document);
    VeskLog::Instance()->Log("removeContext tool \n");
}

Canvas clearedCanvasOf(const Document &document)
{
    Canvas canvas = document ? document->getCanvas() : nullptr;
    if (canvas)
        canvas->resetCanvas();
    return canvas;
}

void addPictureLayer(const Document &document, std::unique_ptr<VeskPictureHost> picture,
                     const QString &name)
{
    if (!document)
        return;
    auto *layer = new VeskLayer(name);
    layer->setVeskPictureHost(picture.release());
    layer->setAlpha(1.0F);
    document->getLayerManager()->addLayer(layer, true);
}

void moveCanvas(const Canvas &canvas, const Document &document, QSize size)
{
    if (canvas)
        canvas->reSizeCanvas(size.width(), size.height(), true);
    if (canvas && document)
        document->setCanvas(canvas);
}

void addSelection(const Canvas &canvas, const Document &document, QSize size)
{
    auto selection = std::make_unique<VeskSelection>(nullptr, size.width(), size.height());
    if (canvas && document)
        canvas->setSelection(selection.get());
    if (document)
        document->setSelection(selection.release());
}

void showOnCanvas(const Canvas &canvas, const Document &document)
{
    if (canvas)
        canvas->moveToCenter(true);
    if (canvas && document)
        canvas->attachContext(document);
    if (canvas)
        canvas->startCanvasTimer(kSelectionTimerMilliseconds);
    if (canvas)
        canvas->update();
}

void refreshHistogram(const Canvas &canvas)
{
    const bool isVisible = VeskGlobalSettings::getInstance(nullptr)->isHistogramVisible();
    if (canvas && isVisible)
        canvas->updateHistogram();
}

void enableDocumentActions()
{
    VeskActionManager *actions = VeskActionManager::getInstance(QString());
    for (const int action : {VeskActionManager::SaveAction, VeskActionManager::CloseAction,
                             VeskActionManager::SaveAsAction})
        actions->setEnabled(action, true);
}

void markUnsaved(const Document &document)
{
    if (document)
        document->setFileName(QStringLiteral("Untitled Document"));
    if (document)
        document->setSaveAble(true);
}

} // namespace

void merged_document::replace(VeskContext *old, std::unique_ptr<QImage> picture,
                              const QString &layerName)
{
    const Document oldDocument = old;
    VeskLog::Instance()->Log("HDR \n");
    detachTool(oldDocument);

    VeskPictureReader reader(nullptr);
    const Document document = new VeskContext(nullptr);
    openDocument(document);
    closeDocument(oldDocument);

    const Canvas canvas = clearedCanvasOf(oldDocument);
    std::unique_ptr<VeskPictureHost> host(reader.ReadImageToHost(*picture));
    const QSize size(host->getWidth(), host->getHeight());
    addPictureLayer(document, std::move(host), layerName);
    moveCanvas(canvas, document, size);
    addSelection(canvas, document, size);
    VeskUIController::getInstance(nullptr)->notifyUI(QStringLiteral("initHistogramWidget"), {});
    showOnCanvas(canvas, document);
    if (oldDocument)
        oldDocument->deleteLater();
    refreshHistogram(canvas);
    enableDocumentActions();
    markUnsaved(document);
}
