#include "qt_decoder.h"

#include "AllocationLimitLift.h"
#include "exif_block.h"
#include "exif_orientation.h"
#include "picture_completeness.h"
#include "unsupported_kinds.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QImageReader>
#include <QTransform>

#include <algorithm>
#include <mutex>
#include <new>

namespace {

using Transformations = QImageIOHandler::Transformations;

/// Drawings may hold text, and fonts end the process when no graphical application is there.
bool canDraw(const QByteArray &format)
{
    const bool isDrawing = format == "svg" || format == "svgz";
    return !isDrawing || qobject_cast<QGuiApplication *>(QCoreApplication::instance());
}

/// A damaged file can hold indexes beyond its colour table. They become transparent black.
void completeColourTable(QImage &picture)
{
    if (picture.format() == QImage::Format_Mono || picture.format() == QImage::Format_MonoLSB) {
        if (picture.colorCount() < 2)
            picture.setColorCount(2);
        return;
    }
    if (picture.format() != QImage::Format_Indexed8 || picture.colorCount() >= 256)
        return;
    uchar largest = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const uchar *row = picture.constScanLine(y);
        largest = std::max(largest, *std::max_element(row, row + picture.width()));
    }
    if (largest >= picture.colorCount())
        picture.setColorCount(largest + 1);
}

/// Where memory runs out while Qt loads its decoders, it keeps a lock for good and the
/// next reader would wait for ever. So they are loaded once, ahead; false when that failed.
bool areDecodersLoaded()
{
    static const bool areLoaded = [] {
        try {
            QBuffer nothing;
            nothing.open(QIODevice::ReadOnly);
            QImageReader reader(&nothing);
            reader.setDecideFormatFromContent(true);
            reader.format();
            return true;
        } catch (const std::bad_alloc &) {
            return false;
        }
    }();
    return areLoaded;
}

/// The same lock stays taken when memory runs out while Qt chooses a decoder: then nobody may ask
/// again. One thread at a time, as behind that lock anyway.
QByteArray formatOf(const QImageReader &reader)
{
    static std::mutex mutex;
    static bool isLockLost = false;
    const std::lock_guard guard(mutex);
    if (isLockLost)
        throw std::bad_alloc();
    try {
        return reader.format();
    } catch (const std::bad_alloc &) {
        isLockLost = true;
        throw;
    }
}

qint64 pixelsOf(QSize size)
{
    return qint64(size.width()) * size.height();
}

/// Qt takes memory for a GIF file's whole screen, but tells the size of its first picture.
/// A screen without a side grows with the pictures on it.
QSize screenOfGif(QFile &file)
{
    constexpr int kLargestSide = 65535;
    const QByteArray head = file.peek(10);
    const auto side = [&head](int at) {
        const int length = head.size() < 10 ? 0 : uchar(head[at]) | uchar(head[at + 1]) << 8;
        return length == 0 ? kLargestSide : length;
    };
    return {side(6), side(8)};
}

/// Size of what the reader will take memory for; empty when the file does not tell.
QSize sizeInMemory(QFile &file, const QImageReader &reader)
{
    const QSize screen = reader.format() == "gif" ? screenOfGif(file) : QSize();
    const QSize size = reader.size();
    return size.isEmpty() ? QSize() : size.expandedTo(screen);
}

/// Why Qt gave no picture of this size: it does not tell.
DecodedPicture failedReading(QSize size)
{
    const bool isMemoryShort = QImage(size, QImage::Format_RGBA64).isNull();
    return picture::failure(isMemoryShort ? DecodeError::NoMemory : DecodeError::Damaged, size);
}

/// So that the format's decoder leaves out what a small copy does not need, where it can: twice the
/// size, so that the rest is smooth.
void askForLess(QImageReader &reader, QSize size, int side)
{
    const bool isWorthwhile = side > 0 && qMax(size.width(), size.height()) > 2 * side;
    if (isWorthwhile && reader.supportsOption(QImageIOHandler::ScaledSize))
        reader.setScaledSize(
            size.scaled(2 * side, 2 * side, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
}

QImage::Format wantedFormat(const QImage &picture, ReadOptions::Depth depth)
{
    const bool isDeepWanted = depth == ReadOptions::Depth::AsStored;
    switch (picture.format()) {
    case QImage::Format_RGBX64:
        return isDeepWanted ? QImage::Format_RGBX64 : QImage::Format_RGB32;
    case QImage::Format_RGBA64:
    case QImage::Format_RGBA64_Premultiplied:
        return isDeepWanted ? QImage::Format_RGBA64 : QImage::Format_ARGB32;
    case QImage::Format_Grayscale16:
        return isDeepWanted ? QImage::Format_Grayscale16 : QImage::Format_Grayscale8;
    default:
        break;
    }
    // The engine reads words of 32 bits as they stand, whatever they mean.
    if (picture.depth() < 32)
        return picture.format();
    return picture.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32;
}

/// Colours that are not multiplied with alpha, and no more levels than are wanted. In place.
void bringToForm(QImage &picture, ReadOptions::Depth depth)
{
    const QImage::Format wanted = wantedFormat(picture, depth);
    if (picture.format() != wanted)
        picture = std::move(picture).convertToFormat(wanted);
}

/// Qt does not know the EXIF blocks of all formats.
void turnUpright(QImage &picture, Transformations orientation)
{
    const bool mirrors = orientation & QImageIOHandler::TransformationMirror;
    const bool flips = orientation & QImageIOHandler::TransformationFlip;
    if (mirrors || flips)
        picture = std::move(picture).mirrored(mirrors, flips);
    if (orientation & QImageIOHandler::TransformationRotate90)
        picture = picture.transformed(QTransform().rotate(90));
}

/// Qt takes some kinds that it does not read for no picture, and some for another kind, damaged.
DecodedPicture withKindTold(DecodedPicture decoded, QFile &file)
{
    const bool isTold =
        decoded.error != DecodeError::NotAPicture && decoded.error != DecodeError::Damaged;
    const QString kind = isTold ? QString() : picture::unsupportedKind(file);
    return kind.isEmpty() ? decoded : picture::unsupported(kind);
}

/// The size is within the caller's limit.
DecodedPicture read(QImageReader &reader, QSize size, Transformations orientation,
                    const ReadOptions &options)
{
    const AllocationLimitLift lift;
    askForLess(reader, size, options.side);
    const bool isTurnedByQt = reader.transformation() != QImageIOHandler::TransformationNone;
    DecodedPicture decoded;
    decoded.image = reader.read();
    if (decoded.image.isNull())
        return failedReading(size);
    if (pixelsOf(decoded.image.size()) > options.pixelLimit)
        return picture::failure(DecodeError::TooLarge, decoded.image.size());
    completeColourTable(decoded.image);
    if (!isTurnedByQt)
        bringToForm(decoded.image, options.depth);
    turnUpright(decoded.image, orientation);
    return decoded.image.isNull() ? picture::failure(DecodeError::NoMemory, size) : decoded;
}

DecodedPicture decodeKnown(QFile &file, const ReadOptions &options)
{
    if (!areDecodersLoaded())
        return picture::failure(DecodeError::NoMemory);
    const Transformations orientation = exif::orientation(exif::blockIn(file));
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QByteArray format = formatOf(reader);
    if (format.isEmpty() || !canDraw(format))
        return picture::failure(DecodeError::NotAPicture);
    if (!picture::isComplete(file, format))
        return picture::failure(DecodeError::Damaged);
    const QSize size = sizeInMemory(file, reader);
    if (size.isEmpty())
        return picture::failure(DecodeError::Damaged);
    if (pixelsOf(size) > options.pixelLimit)
        return picture::failure(DecodeError::TooLarge, size);
    return read(reader, size, orientation, options);
}

} // namespace

DecodedPicture qt_decoder::decode(QFile &file, const ReadOptions &options)
{
    return withKindTold(decodeKnown(file, options), file);
}
