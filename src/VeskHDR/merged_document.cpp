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

void detachTool(VeskContext &document)
{
    if (IVeskTool *tool = document.getCurrentTool())
        tool->disActive();
    document.setCurrentTool(nullptr);
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

VeskCanvas *clearedCanvasOf(const VeskContext *document)
{
    VeskCanvas *canvas = document ? document->getCanvas() : nullptr;
    if (canvas)
        canvas->resetCanvas();
    return canvas;
}

void addPictureLayer(VeskContext &document, VeskPictureHost *picture, const QString &name)
{
    auto *layer = new VeskLayer(name);
    layer->setVeskPictureHost(picture);
    layer->setAlpha(1.0F);
    document.getLayerManager()->addLayer(layer, true);
}

void enableDocumentActions()
{
    VeskActionManager *actions = VeskActionManager::getInstance(QString());
    for (const int action : {VeskActionManager::SaveAction, VeskActionManager::CloseAction,
                             VeskActionManager::SaveAsAction})
        actions->setEnabled(action, true);
}

} // namespace

void replaceDocument(VeskContext *old, std::unique_ptr<QImage> picture, const QString &layerName)
{
    // The editor reacts to every step; whatever of the old document it takes away is left out.
    QPointer<VeskContext> oldDocument = old;
    VeskLog::Instance()->Log("HDR \n");
    if (oldDocument)
        detachTool(*oldDocument);

    VeskPictureReader reader(nullptr);
    auto *document = new VeskContext(nullptr);
    openDocument(document);
    closeDocument(oldDocument);

    VeskCanvas *canvas = clearedCanvasOf(oldDocument);
    VeskPictureHost *host = reader.ReadImageToHost(*picture);
    const QSize size(host->getWidth(), host->getHeight());
    addPictureLayer(*document, host, layerName);
    if (canvas) {
        canvas->reSizeCanvas(size.width(), size.height(), true);
        document->setCanvas(canvas);
    }
    auto *selection = new VeskSelection(nullptr, size.width(), size.height());
    if (canvas)
        canvas->setSelection(selection);
    document->setSelection(selection);
    VeskUIController::getInstance(nullptr)->notifyUI(QStringLiteral("initHistogramWidget"), {});
    if (canvas) {
        canvas->moveToCenter(true);
        canvas->attachContext(document);
        canvas->startCanvasTimer(kSelectionTimerMilliseconds);
        canvas->update();
    }
    if (oldDocument)
        oldDocument->deleteLater();
    if (canvas && VeskGlobalSettings::getInstance(nullptr)->isHistogramVisible())
        canvas->updateHistogram();
    enableDocumentActions();
    document->setFileName(QStringLiteral("Untitled Document"));
    document->setSaveAble(true);
}
