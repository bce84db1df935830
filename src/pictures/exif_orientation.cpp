#include "exif_orientation.h"

#include <array>
#include <cstring>
#include <memory>

#include <libexif/exif-data.h>

namespace {

constexpr std::array<unsigned char, 6> kSignature = {'E', 'x', 'i', 'f', 0, 0};
constexpr unsigned kSmallestHeader = 8;

struct UnrefData
{
    void operator()(ExifData *data) const { exif_data_unref(data); }
};

QImageIOHandler::Transformations transformationOf(int orientation)
{
    switch (orientation) {
    case 2:
        return QImageIOHandler::TransformationMirror;
    case 3:
        return QImageIOHandler::TransformationRotate180;
    case 4:
        return QImageIOHandler::TransformationFlip;
    case 5:
        return QImageIOHandler::TransformationFlipAndRotate90;
    case 6:
        return QImageIOHandler::TransformationRotate90;
    case 7:
        return QImageIOHandler::TransformationMirrorAndRotate90;
    case 8:
        return QImageIOHandler::TransformationRotate270;
    default:
        return QImageIOHandler::TransformationNone;
    }
}

} // namespace

bool exif::isExif(const unsigned char *bytes, unsigned length)
{
    return length >= kSignature.size() + kSmallestHeader &&
           std::memcmp(bytes, kSignature.data(), kSignature.size()) == 0;
}

QImageIOHandler::Transformations exif::orientation(const unsigned char *bytes, unsigned length)
{
    const std::unique_ptr<ExifData, UnrefData> data(exif_data_new());
    if (!data)
        return QImageIOHandler::TransformationNone;
    exif_data_unset_option(data.get(), EXIF_DATA_OPTION_FOLLOW_SPECIFICATION);
    exif_data_load_data(data.get(), bytes, length);
    const ExifEntry *entry = exif_content_get_entry(data->ifd[EXIF_IFD_0], EXIF_TAG_ORIENTATION);
    if (!entry || entry->format != EXIF_FORMAT_SHORT || entry->size < 2)
        return QImageIOHandler::TransformationNone;
    return transformationOf(exif_get_short(entry->data, exif_data_get_byte_order(data.get())));
}
