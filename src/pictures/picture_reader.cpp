#include "picture_reader.h"

#include "picture_decoder.h"

#include <VeskRawType.h>

#include <new>

namespace {

DecodedPicture fitted(DecodedPicture picture, int side)
{
    const QSize size = picture.image.size();
    if (picture.image.isNull() || qMax(size.width(), size.height()) <= side)
        return picture;
    picture.image = picture.image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return picture.image.isNull() ? picture::failure(DecodeError::NoMemory, size) : picture;
}

} // namespace

DecodedPicture picture::read(const QString &path, const ReadOptions &options,
                             const RawConverter &convert)
{
    try {
        DecodedPicture picture =
            VeskRawType::isRaw(path) ? convert(path, options) : decode(path, options);
        return options.side > 0 ? fitted(std::move(picture), options.side) : picture;
    } catch (const std::bad_alloc &) {
        return failure(DecodeError::NoMemory);
    }
}
