#include "picture_document.h"

#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>
#include <VeskSelection.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QVariant>

namespace {

constexpr char kMetadataSource[] = "metadataSource";
constexpr char kResultMark[] = "resultMark";
constexpr char kSavedBits[] = "savedBits";
constexpr char kSavedLayers[] = "savedLayers";

void addLayer(VeskContext &context, const QImage &picture)
{
    auto *layer = new VeskLayer(QCoreApplication::translate("Document", "Background"));
    layer->setVeskPictureHost(new VeskPictureHost(picture));
    context.getLayerManager()->addLayer(layer, true);
}

/// Two equal ones give the same file.
QString layerState(const VeskContext &context)
{
    QString state;
    const VeskLayerManager *layers = context.getLayerManager();
    for (int index = 0; index < layers->count(); ++index) {
        const VeskLayerBase *layer = layers->layerAt(index);
        state += QStringLiteral("%1 %2 %3;")
                     .arg(layer->picture().cacheKey())
                     .arg(double(layer->getAlpha()))
                     .arg(layer->isVisible());
    }
    return state;
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

std::optional<ResultMark> document::resultMark(const VeskContext &context)
{
    const QVariant mark = context.property(kResultMark);
    return mark.isValid() ? std::optional<ResultMark>(mark.value<ResultMark>()) : std::nullopt;
}

void document::setResultMark(VeskContext &context, const ResultMark &mark)
{
    context.setProperty(kResultMark, QVariant::fromValue(mark));
}

ResultMark document::markOfMerge(const QString &method, const QStringList &paths,
                                 const QString &options)
{
    ResultMark mark;
    mark.program = QStringLiteral("vesk");
    mark.version = QCoreApplication::applicationVersion();
    mark.method = method;
    mark.options = options;
    for (const QString &path : paths)
        mark.sources += QFileInfo(path).fileName();
    return mark;
}

int document::savedBits(const VeskContext &context)
{
    return context.property(kSavedBits).toInt();
}

void document::setSavedBits(VeskContext &context, int bits)
{
    context.setProperty(kSavedBits, bits);
}

void document::setLayerVisible(VeskContext &context, int index, bool isVisible)
{
    VeskLayerBase *layer = context.getLayerManager()->layerAt(index);
    if (!layer || layer->isVisible() == isVisible)
        return;
    if (!context.isSaveAble())
        markSaved(context);
    layer->setVisible(isVisible);
    context.setSaveAble(layerState(context) != context.property(kSavedLayers).toString());
}

void document::markSaved(VeskContext &context)
{
    context.setProperty(kSavedLayers, layerState(context));
    context.setSaveAble(false);
}
