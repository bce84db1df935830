#include "VeskContext.h"

#include "VeskLayerManager.h"
#include "VeskSelection.h"

#include <IVeskTool.h>

#include <QVector>

namespace {

/// The library that knows the canvas stands above this one, so a canvas that goes away says so
/// itself, and every context there is must hear it.
QVector<VeskContext *> &livingContexts()
{
    static QVector<VeskContext *> contexts;
    return contexts;
}

} // namespace

VeskContext::VeskContext(QObject *parent)
    : QObject(parent)
    , layerManager(new VeskLayerManager(this))
{
    connect(layerManager, &VeskLayerManager::layersChanged, this, &VeskContext::layersChanged);
    livingContexts().append(this);
}

VeskContext::~VeskContext()
{
    livingContexts().removeOne(this);
}

IVeskTool *VeskContext::getCurrentTool() const
{
    return currentTool;
}

void VeskContext::setCurrentTool(IVeskTool *tool)
{
    if (currentTool == tool)
        return;
    currentTool = tool;
    Q_EMIT currentToolChanged(tool);
}

VeskCanvas *VeskContext::getCanvas() const
{
    return canvas;
}

void VeskContext::setCanvas(VeskCanvas *newCanvas)
{
    if (canvas == newCanvas)
        return;
    canvas = newCanvas;
    Q_EMIT canvasChanged(canvas);
}

void VeskContext::forgetCanvas(const VeskCanvas *canvas)
{
    if (!canvas)
        return;
    const QVector<VeskContext *> contexts = livingContexts();
    for (VeskContext *context : contexts)
        if (context->canvas == canvas)
            context->setCanvas(nullptr);
}

VeskLayerManager *VeskContext::getLayerManager() const
{
    return layerManager;
}

VeskSelection *VeskContext::getSelection() const
{
    return selection;
}

void VeskContext::setSelection(VeskSelection *newSelection)
{
    if (selection == newSelection)
        return;
    const QPointer<VeskSelection> old = selection;
    selection = newSelection;
    if (newSelection)
        newSelection->setParent(this);
    Q_EMIT selectionChanged(newSelection);
    delete old;
}

void VeskContext::setFileName(const QString &name)
{
    if (fileName == name)
        return;
    fileName = name;
    Q_EMIT fileNameChanged(name);
}

void VeskContext::setFilePath(const QString &path)
{
    filePath = path;
}

bool VeskContext::isSaveAble() const
{
    return saveAble;
}

void VeskContext::setSaveAble(bool newSaveAble)
{
    if (saveAble == newSaveAble)
        return;
    saveAble = newSaveAble;
    Q_EMIT saveAbleChanged(saveAble);
}
