#include "LoadedPicture.h"

#include <picture_decoder.h>
#include <VeskGlobalSettings.h>
#include <VeskRaw.h>
#include <VeskRawType.h>

LoadedPicture loadPicture(const QString &path, const std::atomic<bool> &cancelled)
{
    const qint64 pixelLimit = VeskGlobalSettings::pixelLimit();
    if (VeskRawType::isRaw(path)) {
        VeskRaw::setPixelLimit(pixelLimit);
        const VeskRaw::Conversion raw = VeskRaw::convert(path, false, &cancelled);
        return {path, raw.picture, raw.error};
    }
    const DecodedPicture decoded = decodePicture(path, pixelLimit);
    return {path, decoded.image, decoded.reason};
}
