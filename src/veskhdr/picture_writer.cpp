#include "picture_writer.h"

#include "encoders.h"

#include <QColorSpace>

namespace {

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

WriteResult writePicture(const QImage &picture, const QString &path, PictureFormat format,
                         const WriteOptions &options)
{
    const QImage words = picture.convertToFormat(QImage::Format_RGB32);
    if (words.isNull())
        return {OutputFile::Error::WriteFailed, QStringLiteral("not enough memory")};
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
