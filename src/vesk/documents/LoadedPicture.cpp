#include "LoadedPicture.h"

#include <VeskGlobalSettings.h>
#include <gain_map.h>
#include <picture_reader.h>

#include <QFile>

namespace {

bool hasGainMap(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && gain_map::read(file);
}

} // namespace

LoadedPicture loadPicture(const QString &path, const std::atomic<bool> &cancelled)
{
    ReadOptions options;
    options.pixelLimit = VeskGlobalSettings::pixelLimit();
    options.depth = ReadOptions::Depth::AsStored;
    options.colours = ReadOptions::Colours::True;
    options.light = ReadOptions::Light::Floats;
    options.cancelled = &cancelled;
    const FileStamp stamp = FileStamp::of(path);
    const DecodedPicture read = picture::read(path, options);
    return {path, read.image, read.reason, stamp, !read.image.isNull() && hasGainMap(path)};
}

bool LoadedPicture::isLight() const
{
    switch (image.format()) {
    case QImage::Format_RGBX32FPx4:
    case QImage::Format_RGBA32FPx4:
    case QImage::Format_RGBA32FPx4_Premultiplied:
        return true;
    default:
        return false;
    }
}
