#include "picture_decoder.h"

#include "InterruptibleFile.h"
#include "avif_decoder.h"
#include "exr_decoder.h"
#include "hdr_decoder.h"
#include "jpeg_decoder.h"
#include "jxl_decoder.h"
#include "qt_decoder.h"
#include "regular_file.h"
#include "tiff_decoder.h"
#include "true_colours.h"

#include <new>

#include <unistd.h>

namespace {

/// Files that hold nothing but light; nothing for all others.
std::optional<DecodedPicture> decodeLight(QFile &file, const ReadOptions &options)
{
#ifdef VESK_WITH_OPENEXR
    if (std::optional<DecodedPicture> decoded = exr_decoder::decode(file, options))
        return decoded;
#endif
    return hdr_decoder::decode(file, options);
}

DecodedPicture decodeOpen(QFile &file, const ReadOptions &options)
{
    if (file.peek(3) == QByteArrayLiteral("\xFF\xD8\xFF"))
        return jpeg::decode(file, options);
    if (std::optional<DecodedPicture> decoded = tiff_decoder::decode(file, options))
        return *decoded;
    if (options.light != ReadOptions::Light::Refused) {
        if (std::optional<DecodedPicture> decoded = decodeLight(file, options))
            return *decoded;
    }
#ifdef VESK_WITH_AVIF
    if (std::optional<DecodedPicture> decoded = avif_decoder::decode(file, options))
        return *decoded;
#endif
#ifdef VESK_WITH_JXL
    if (std::optional<DecodedPicture> decoded = jxl_decoder::decode(file, options))
        return *decoded;
#endif
    return qt_decoder::decode(file, options);
}

DecodedPicture decodeFile(const QString &path, const ReadOptions &options)
{
    int descriptor = -1;
    const DecodeError error = regular_file::open(path, descriptor);
    if (error != DecodeError::None)
        return picture::failure(error);
    InterruptibleFile file(options.cancelled);
    if (!file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        return picture::failure(DecodeError::Unreadable);
    }
    DecodedPicture picture = decodeOpen(file, options);
    if (file.isInterrupted())
        return picture::failure(DecodeError::Cancelled);
    if (options.colours == ReadOptions::Colours::True)
        true_colours::settle(picture, file);
    return picture;
}

} // namespace

DecodedPicture picture::decode(const QString &path, const ReadOptions &options)
{
    try {
        return decodeFile(path, options);
    } catch (const std::bad_alloc &) {
        return failure(DecodeError::NoMemory);
    }
}
