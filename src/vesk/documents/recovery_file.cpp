#include "recovery_file.h"
#include "picture_document.h"

#include <OutputFile.h>
#include <VeskContext.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>

#include <QColorSpace>
#include <QDataStream>
#include <QFile>

#include <new>

namespace {

constexpr quint32 kMagic = 0x5665736B; // "Vesk"
constexpr quint32 kEnd = 0x21646E65;   // behind all else
constexpr quint16 kVersion = 2;        // 1 has no stamp and no gain map
constexpr int kMostLayers = 1000;
constexpr int kLongestSide = 1 << 20;

qsizetype rowBytes(const QImage &picture)
{
    return (qsizetype(picture.width()) * picture.depth() + 7) / 8;
}

QDataStream &operator<<(QDataStream &out, const ResultMark &mark)
{
    return out << mark.program << mark.version << mark.method << mark.options << mark.sources;
}

/// One by one: Qt takes memory for as many as a damaged file promises.
QDataStream &operator>>(QDataStream &in, ResultMark &mark)
{
    quint32 sources = 0;
    in >> mark.program >> mark.version >> mark.method >> mark.options >> sources;
    for (quint32 i = 0; i < sources && in.status() == QDataStream::Ok; ++i) {
        QString source;
        in >> source;
        mark.sources += source;
    }
    return in;
}

void writePicture(QDataStream &out, const QImage &picture)
{
    const QColorSpace space = picture.colorSpace();
    const QByteArray profile = space.isValid() ? space.iccProfile() : QByteArray();
    out << picture.size() << qint32(picture.format()) << picture.colorTable() << profile
        << qint32(picture.dotsPerMeterX()) << qint32(picture.dotsPerMeterY());
    for (int y = 0; y < picture.height(); ++y)
        out.writeRawData(reinterpret_cast<const char *>(picture.constScanLine(y)),
                         int(rowBytes(picture)));
}

/// False when it is not whole.
bool readPicture(QDataStream &in, QImage &picture)
{
    QSize size;
    qint32 format = 0;
    QVector<QRgb> colours;
    QByteArray profile;
    qint32 resolution[2] = {};
    in >> size >> format >> colours >> profile >> resolution[0] >> resolution[1];
    const bool isSound = in.status() == QDataStream::Ok && format > QImage::Format_Invalid &&
                         format < QImage::NImageFormats && size.width() <= kLongestSide &&
                         size.height() <= kLongestSide;
    if (!isSound)
        return false;
    if (size.isEmpty())
        return true; // a layer without a picture
    picture = QImage(size, QImage::Format(format));
    if (picture.isNull() || in.device()->bytesAvailable() < rowBytes(picture) * picture.height())
        return false;
    picture.setColorTable(colours);
    if (!profile.isEmpty())
        picture.setColorSpace(QColorSpace::fromIccProfile(profile));
    picture.setDotsPerMeterX(resolution[0]);
    picture.setDotsPerMeterY(resolution[1]);
    for (int y = 0; y < picture.height(); ++y) {
        const int bytes = int(rowBytes(picture));
        if (in.readRawData(reinterpret_cast<char *>(picture.scanLine(y)), bytes) != bytes)
            return false;
    }
    return true;
}

/// In front: what is needed to speak of the document. False for other files.
bool readHead(QDataStream &in, QString &name, quint16 &version)
{
    quint32 magic = 0;
    in.setVersion(QDataStream::Qt_6_4);
    in >> magic >> version;
    if (magic != kMagic || version < 1 || version > kVersion)
        return false;
    in >> name;
    return in.status() == QDataStream::Ok;
}

void writeAll(QDataStream &out, const RecoveredDocument &document)
{
    out.setVersion(QDataStream::Qt_6_4);
    out << kMagic << kVersion << document.name << document.path << document.metadataSource
        << bool(document.mark) << document.mark.value_or(ResultMark()) << qint32(document.savedBits)
        << document.stamp.bytes << document.stamp.changedMs << document.hasGainMap
        << qint32(document.layers.size());
    for (const RecoveredDocument::Layer &layer : document.layers) {
        out << layer.name << layer.alpha << layer.isVisible;
        writePicture(out, layer.picture);
    }
    out << kEnd;
}

bool readLayers(QDataStream &in, qint32 count, QList<RecoveredDocument::Layer> &layers)
{
    if (count < 0 || count > kMostLayers)
        return false;
    for (qint32 i = 0; i < count; ++i) {
        RecoveredDocument::Layer layer;
        in >> layer.name >> layer.alpha >> layer.isVisible;
        if (!readPicture(in, layer.picture))
            return false;
        layers.append(layer);
    }
    quint32 end = 0;
    in >> end;
    return end == kEnd && in.status() == QDataStream::Ok;
}

} // namespace

RecoveredDocument recovery::snapshot(const VeskContext &document)
{
    RecoveredDocument kept;
    kept.name = document.getFileName();
    kept.path = document.getFilePath();
    kept.metadataSource = document::metadataSource(document);
    kept.mark = document::resultMark(document);
    kept.savedBits = document::savedBits(document);
    kept.stamp = document::fileStamp(document);
    kept.hasGainMap = document::hasGainMapInFile(document);
    const VeskLayerManager *layers = document.getLayerManager();
    for (int i = 0; i < layers->count(); ++i) {
        const VeskLayerBase *layer = layers->layerAt(i);
        kept.layers.append(
            {layer->picture(), layer->getName(), layer->getAlpha(), layer->isVisible()});
    }
    return kept;
}

VeskContext *recovery::restored(const RecoveredDocument &kept, QWidget *canvasOwner)
{
    VeskContext *document = document::create({}, kept.name, kept.path, canvasOwner);
    for (const RecoveredDocument::Layer &each : kept.layers) {
        auto *layer = new VeskLayer(each.name);
        layer->setVeskPictureHost(new VeskPictureHost(each.picture));
        layer->setAlpha(each.alpha);
        layer->setVisible(each.isVisible);
        document->getLayerManager()->addLayer(layer, true);
    }
    document::fitToLayers(*document);
    document::setMetadataSource(*document, kept.metadataSource);
    if (kept.mark)
        document::setResultMark(*document, *kept.mark);
    document::setSavedBits(*document, kept.savedBits);
    document::setFileStamp(*document, kept.stamp);
    document::setGainMapInFile(*document, kept.hasGainMap);
    document->setSaveAble(true);
    return document;
}

QString recovery::write(const RecoveredDocument &document, const QString &path)
{
    OutputFile file(path, true);
    if (!file.open())
        return file.reason();
    QDataStream out(&file.device());
    writeAll(out, document);
    return file.publish() ? QString() : file.reason();
}

std::optional<RecoveredDocument> recovery::read(const QString &path)
try {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QDataStream in(&file);
    RecoveredDocument document;
    quint16 version = 0;
    if (!readHead(in, document.name, version))
        return std::nullopt;
    bool hasMark = false;
    ResultMark mark;
    qint32 savedBits = 0;
    qint32 layers = 0;
    in >> document.path >> document.metadataSource >> hasMark >> mark >> savedBits;
    if (version > 1)
        in >> document.stamp.bytes >> document.stamp.changedMs >> document.hasGainMap;
    in >> layers;
    if (hasMark)
        document.mark = mark;
    document.savedBits = savedBits;
    if (!readLayers(in, layers, document.layers))
        return std::nullopt;
    return document;
} catch (const std::bad_alloc &) { // lengths in a damaged file
    return std::nullopt;
}

QString recovery::readName(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QDataStream in(&file);
    QString name;
    quint16 version = 0;
    return readHead(in, name, version) ? name : QString();
}
