#include "picture_document.h"
#include "DocumentHistory.h"

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
constexpr char kCoveredArea[] = "coveredArea";
constexpr char kCoveredSize[] = "coveredSize";
constexpr char kSavedBits[] = "savedBits";
constexpr char kStampBytes[] = "stampBytes";
constexpr char kStampTime[] = "stampTime";
constexpr char kGainMapInFile[] = "gainMapInFile";

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

void document::fitToLayers(VeskContext &context)
{
    const QSize size = context.getLayerManager()->size();
    VeskCanvas *canvas = context.getCanvas();
    if (canvas)
        canvas->reSizeCanvas(size.width(), size.height(), true);
    auto *selection = new VeskSelection(nullptr, size.width(), size.height());
    if (canvas)
        canvas->setSelection(selection);
    context.setSelection(selection);
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

QRect document::coveredArea(const VeskContext &context)
{
    const QSize size = context.property(kCoveredSize).toSize();
    return size == context.getLayerManager()->size() ? context.property(kCoveredArea).toRect()
                                                     : QRect();
}

void document::setCoveredArea(VeskContext &context, const QRect &area)
{
    context.setProperty(kCoveredArea, area);
    context.setProperty(kCoveredSize, context.getLayerManager()->size());
}

int document::savedBits(const VeskContext &context)
{
    return context.property(kSavedBits).toInt();
}

void document::setSavedBits(VeskContext &context, int bits)
{
    context.setProperty(kSavedBits, bits);
}

FileStamp document::fileStamp(const VeskContext &context)
{
    const QVariant bytes = context.property(kStampBytes);
    return bytes.isValid()
               ? FileStamp{bytes.toLongLong(), context.property(kStampTime).toLongLong()}
               : FileStamp();
}

void document::setFileStamp(VeskContext &context, const FileStamp &stamp)
{
    context.setProperty(kStampBytes, stamp.bytes);
    context.setProperty(kStampTime, stamp.changedMs);
}

bool document::isFileChanged(const VeskContext &context)
{
    const FileStamp known = fileStamp(context);
    const FileStamp now = FileStamp::of(context.getFilePath());
    return known.isKnown() && now.isKnown() && !(now == known);
}

bool document::hasGainMapInFile(const VeskContext &context)
{
    return context.property(kGainMapInFile).toBool();
}

void document::setGainMapInFile(VeskContext &context, bool hasOne)
{
    context.setProperty(kGainMapInFile, hasOne);
}

void document::setLayerVisible(VeskContext &context, int index, bool isVisible)
{
    DocumentHistory::of(context).addVisibility(index, isVisible);
}

void document::markSaved(VeskContext &context)
{
    DocumentHistory::of(context).markSaved();
}
