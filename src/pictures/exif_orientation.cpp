#include "exif_orientation.h"

#include <memory>

#include <libexif/exif-data.h>

namespace {

constexpr char kSignature[] = "Exif\0"; // and the literal's own zero byte

struct UnrefData
{
    void operator()(ExifData *data) const { exif_data_unref(data); }
};

} // namespace

QImageIOHandler::Transformations exif::orientation(const QByteArray &block)
{
    if (block.isEmpty())
        return QImageIOHandler::TransformationNone;
    const QByteArray bytes = QByteArray(kSignature, sizeof kSignature) + block;
    const std::unique_ptr<ExifData, UnrefData> data(exif_data_new());
    if (!data)
        return QImageIOHandler::TransformationNone;
    exif_data_unset_option(data.get(), EXIF_DATA_OPTION_FOLLOW_SPECIFICATION);
    exif_data_load_data(data.get(), reinterpret_cast<const unsigned char *>(bytes.constData()),
                        static_cast<unsigned>(bytes.size()));
    const ExifEntry *entry = exif_content_get_entry(data->ifd[EXIF_IFD_0], EXIF_TAG_ORIENTATION);
    if (!entry || entry->format != EXIF_FORMAT_SHORT || entry->size < 2)
        return QImageIOHandler::TransformationNone;
    return transformation(exif_get_short(entry->data, exif_data_get_byte_order(data.get())));
}

QImageIOHandler::Transformations exif::transformation(int orientation)
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
