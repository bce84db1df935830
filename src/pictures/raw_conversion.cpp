#include "picture_reader.h"

#include <VeskRaw.h>

#include <QColorSpace>
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

VeskRaw::ColourSpace rawSpaceOf(colour_profile::Space space)
{
    switch (space) {
    case colour_profile::Space::AdobeRgb:
        return VeskRaw::ColourSpace::AdobeRgb;
    case colour_profile::Space::ProPhotoRgb:
        return VeskRaw::ColourSpace::ProPhotoRgb;
    case colour_profile::Space::DisplayP3:
        return VeskRaw::ColourSpace::DisplayP3;
    case colour_profile::Space::Srgb:
        break;
    }
    return VeskRaw::ColourSpace::Srgb;
}

} // namespace

DecodedPicture picture::convertRaw(const QString &path, const ReadOptions &options)
{
    VeskRaw::Options how;
    how.quick = options.side > 0;
    how.bitsPerChannel = options.depth == ReadOptions::Depth::AsStored ? 16 : 8;
    how.colourSpace = rawSpaceOf(options.rawSpace);
    how.isLinear = options.isRawLinear;
    how.pixelLimit = options.pixelLimit;
    VeskRaw::Conversion raw = VeskRaw::convert(path, how, options.cancelled);
    const bool isTagged = options.isRawLinear || raw.picture.isNull();
    if (options.colours == ReadOptions::Colours::True && !isTagged)
        raw.picture.setColorSpace(
            QColorSpace::fromIccProfile(colour_profile::of(options.rawSpace)));
    if (!raw.picture.isNull())
        return {std::move(raw.picture), DecodeError::None, {}};
    const QString reason = PictureDecoder::tr("the camera raw file cannot be converted: %1");
    return {{}, errorOf(raw.failure), reason.arg(raw.error)};
}
