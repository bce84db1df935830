#include "loaded_picture.h"

#include <picture_decoder.h>
#include <vesk_raw.h>
#include <vesk_raw_type.h>

LoadedPicture loadPicture(const QString &path, const std::atomic<bool> &cancelled)
{
    if (VeskRawType::isRaw(path)) {
        const VeskRaw::Conversion raw = VeskRaw::convert(path, false, &cancelled);
        return {path, raw.picture, raw.error};
    }
    const DecodedPicture decoded = decodePicture(path);
    return {path, decoded.image, decoded.reason};
}
