#include "picture_reader.h"

#include <VeskRaw.h>

#include <QCoreApplication>

namespace {

struct PictureDecoder
{
    Q_DECLARE_TR_FUNCTIONS(PictureDecoder)
};

DecodeError errorOf(VeskRaw::Failure failure)
{
    switch (failure) {
    case VeskRaw::Failure::NoMemory:
        return DecodeError::NoMemory;
    case VeskRaw::Failure::TooLarge:
        return DecodeError::TooLarge;
    case VeskRaw::Failure::Cancelled:
        return DecodeError::Cancelled;
    case VeskRaw::Failure::Unreadable:
        return DecodeError::Unreadable;
    default: // of the file, or of what converts it
        return DecodeError::Damaged;
    }
}

} // namespace

DecodedPicture picture::convertRaw(const QString &path, const ReadOptions &options)
{
    VeskRaw::Options how;
    how.quick = options.side > 0;
    how.bitsPerChannel = options.depth == ReadOptions::Depth::AsStored ? 16 : 8;
    how.pixelLimit = options.pixelLimit;
    VeskRaw::Conversion raw = VeskRaw::convert(path, how, options.cancelled);
    if (!raw.picture.isNull())
        return {std::move(raw.picture), DecodeError::None, {}};
    const QString reason = PictureDecoder::tr("the camera raw file cannot be converted: %1");
    return {{}, errorOf(raw.failure), reason.arg(raw.error)};
}
