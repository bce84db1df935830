#include "loaded_picture.h"

#include <picture_decoder.h>
#include <vesk_global_settings.h>
#include <vesk_raw.h>
#include <vesk_raw_type.h>

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
