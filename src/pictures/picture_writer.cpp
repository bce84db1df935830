#include "picture_writer.h"

#include "encoders.h"

#include <QColorSpace>
#include <QPainter>

#include <algorithm>

namespace {

bool isOpaque(const QImage &words)
{
    for (int y = 0; y < words.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(words.constScanLine(y));
        if (!std::all_of(row, row + words.width(), [](QRgb word) { return qAlpha(word) == 255; }))
            return false;
    }
    return true;
}

QImage onWhite(const QImage &picture)
{
    QImage flat = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (flat.isNull())
        return flat;
    QPainter painter(&flat);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    painter.fillRect(flat.rect(), Qt::white);
    painter.end();
    return flat.convertToFormat(QImage::Format_RGB32);
}

/// Colours that are multiplied with alpha stay so, as dividing them loses bits.
QImage::Format wordsWithAlpha(const QImage &picture, PictureFormat format)
{
    const bool isPremultiplied =
        picture.pixelFormat().premultiplied() == QPixelFormat::Premultiplied;
    return isPremultiplied && format == PictureFormat::Tiff ? QImage::Format_ARGB32_Premultiplied
                                                            : QImage::Format_ARGB32;
}

/// The picture as the format's encoder takes it; null when memory is lacking.
QImage encodable(const QImage &picture, PictureFormat format)
{
    if (!picture.hasAlphaChannel())
        return picture.convertToFormat(QImage::Format_RGB32);
    const QImage words = picture.convertToFormat(wordsWithAlpha(picture, format));
    if (isOpaque(words))
        return words.convertToFormat(QImage::Format_RGB32);
    return format == PictureFormat::Jpeg ? onWhite(words) : words;
}

QString encode(const QImage &picture, PictureFormat format, const WriteOptions &options,
               QIODevice &device)
{
    const PictureMetadata metadata{options.exif, picture.colorSpace().iccProfile()};
    switch (format) {
    case PictureFormat::Png:
        return encodePng(picture, metadata, device, options.progress);
    case PictureFormat::Jpeg:
        return encodeJpeg(picture, metadata, options.quality, device, options.progress);
    case PictureFormat::Tiff:
        return encodeTiff(picture, metadata, device, options.progress);
    }
    return {};
}

} // namespace

bool hasTransparency(const QImage &picture)
{
    return picture.hasAlphaChannel() && !isOpaque(picture.convertToFormat(QImage::Format_ARGB32));
}

WriteResult writePicture(const QImage &picture, const QString &path, PictureFormat format,
                         const WriteOptions &options)
{
    const QImage words = encodable(picture, format);
    if (words.isNull())
        return {OutputFile::Error::WriteFailed, PictureEncoder::tr("not enough memory")};
    OutputFile output(path, options.mayReplace, options.temporaryName);
    if (!output.open())
        return {output.error(), output.reason()};
    const QString problem = encode(words, format, options, output.device());
    // What stopped the encoder is mostly that the device takes no more.
    if (!problem.isEmpty())
        return {OutputFile::Error::WriteFailed,
                output.hasDeviceFailed() ? output.device().errorString() : problem};
    if (!output.publish())
        return {output.error(), output.reason()};
    return {};
}
