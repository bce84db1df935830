#include "picture_document.h"

#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>
#include <VeskSelection.h>

#include <QCoreApplication>
#include <QVariant>

namespace {

constexpr char kMetadataSource[] = "metadataSource";

void addLayer(VeskContext &context, const QImage &picture)
{
    auto *layer = new VeskLayer(QCoreApplication::translate("Document", "Background"));
    layer->setVeskPictureHost(new VeskPictureHost(picture));
    context.getLayerManager()->addLayer(layer, true);
}

} // namespace

VeskContext *document::create(const QImage &picture, const QString &name, const QString &path,
                              QWidget *canvasOwner)
{
    auto *context = new VeskContext;
    context->setFileName(name);
    context->setFilePath(path);
    if (!picture.isNull())
        addLayer(*context, picture);
    context->setSelection(new VeskSelection(nullptr, picture.width(), picture.height()));
    addCanvas(*context, canvasOwner);
    return context;
}

void document::addCanvas(VeskContext &context, QWidget *canvasOwner)
{
    auto *canvas = new VeskCanvas(canvasOwner);
    const QSize size = context.getLayerManager()->size();
    canvas->reSizeCanvas(size.width(), size.height(), true);
    canvas->attachContext(&context);
    canvas->setSelection(context.getSelection());
    canvas->startCanvasTimer(0);
    context.setCanvas(canvas);
}

QString document::metadataSource(const VeskContext &context)
{
    const QString other = context.property(kMetadataSource).toString();
    return other.isEmpty() ? context.getFilePath() : other;
}

void document::setMetadataSource(VeskContext &context, const QString &path)
{
    context.setProperty(kMetadataSource, path);
}
