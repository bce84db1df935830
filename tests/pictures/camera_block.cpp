#include "camera_block.h"

#include "byte_order.h"

#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

struct UnrefData
{
    void operator()(ExifData *data) const { exif_data_unref(data); }
};
using Data = std::unique_ptr<ExifData, UnrefData>;

void add(ExifData *data, ExifIfd ifd, int tag, ExifFormat format, unsigned long count,
         const QByteArray &bytes)
{
    ExifEntry *entry = exif_entry_new();
    exif_content_add_entry(data->ifd[ifd], entry);
    entry->tag = static_cast<ExifTag>(tag);
    entry->format = format;
    entry->components = count;
    entry->size = static_cast<unsigned>(bytes.size());
    entry->data = static_cast<unsigned char *>(std::malloc(entry->size));
    std::memcpy(entry->data, bytes.constData(), entry->size);
    exif_entry_unref(entry);
}

Data cameraData()
{
    Data data(exif_data_new());
    exif_data_set_byte_order(data.get(), EXIF_BYTE_ORDER_MOTOROLA);
    add(data.get(), EXIF_IFD_0, EXIF_TAG_MAKE, EXIF_FORMAT_ASCII, 6, QByteArray("Maker", 6));
    add(data.get(), EXIF_IFD_0, EXIF_TAG_ORIENTATION, EXIF_FORMAT_SHORT, 1, QByteArray("\0\6", 2));
    add(data.get(), EXIF_IFD_EXIF, EXIF_TAG_EXPOSURE_TIME, EXIF_FORMAT_RATIONAL, 1,
        QByteArray("\0\0\0\1\0\0\0\x3C", 8));
    add(data.get(), EXIF_IFD_EXIF, EXIF_TAG_PIXEL_X_DIMENSION, EXIF_FORMAT_LONG, 1,
        QByteArray("\0\0\3\xE7", 4));
    add(data.get(), EXIF_IFD_EXIF, EXIF_TAG_SUBJECT_AREA, EXIF_FORMAT_SHORT, 2,
        QByteArray("\0\1\0\2", 4));
    add(data.get(), EXIF_IFD_GPS, EXIF_TAG_GPS_LATITUDE, EXIF_FORMAT_RATIONAL, 3,
        QByteArray("\0\0\0\x2F\0\0\0\1\0\0\0\7\0\0\0\1\0\0\0\5\0\0\0\1", 24));
    data->data = static_cast<unsigned char *>(std::malloc(100));
    std::memset(data->data, 7, 100);
    data->size = 100;
    return data;
}

QByteArray saved(const Data &data)
{
    unsigned char *bytes = nullptr;
    unsigned length = 0;
    exif_data_save_data(data.get(), &bytes, &length);
    const QByteArray block(reinterpret_cast<char *>(bytes), static_cast<int>(length));
    std::free(bytes);
    return block.mid(6);
}

Data loaded(const QByteArray &block)
{
    const QByteArray bytes = QByteArray("Exif\0\0", 6) + block;
    Data data(exif_data_new());
    exif_data_unset_option(data.get(), EXIF_DATA_OPTION_IGNORE_UNKNOWN_TAGS);
    exif_data_unset_option(data.get(), EXIF_DATA_OPTION_FOLLOW_SPECIFICATION);
    exif_data_load_data(data.get(), reinterpret_cast<const unsigned char *>(bytes.constData()),
                        static_cast<unsigned>(bytes.size()));
    return data;
}

QByteArray field(quint16 tag, quint16 type, quint32 count, quint32 value)
{
    return byte_order::written(tag, false) + byte_order::written(type, false) +
           byte_order::written(count, false) + byte_order::written(value, false);
}

} // namespace

QByteArray camera_block::made()
{
    return saved(cameraData());
}

QByteArray camera_block::with(ExifIfd ifd, int tag, ExifFormat format, unsigned long count,
                              const QByteArray &value)
{
    const Data data = cameraData();
    add(data.get(), ifd, tag, format, count, value);
    return saved(data);
}

QByteArray camera_block::valueOf(const QByteArray &block, ExifIfd ifd, int tag)
{
    const Data data = loaded(block);
    ExifEntry *entry = exif_content_get_entry(data->ifd[ifd], static_cast<ExifTag>(tag));
    if (!entry)
        return {};
    QByteArray text(200, '\0');
    exif_entry_get_value(entry, text.data(), static_cast<unsigned>(text.size()));
    return text.constData();
}

QByteArray camera_block::bytesOf(const QByteArray &block, ExifIfd ifd, int tag)
{
    const Data data = loaded(block);
    const ExifEntry *entry = exif_content_get_entry(data->ifd[ifd], static_cast<ExifTag>(tag));
    return entry ? QByteArray(reinterpret_cast<const char *>(entry->data), int(entry->size))
                 : QByteArray();
}

bool camera_block::hasThumbnail(const QByteArray &block)
{
    const Data data = loaded(block);
    return data->size > 0 || data->ifd[EXIF_IFD_1]->count > 0;
}

QByteArray camera_block::withMakerNoteAt(int place, const QByteArray &note)
{
    constexpr quint16 kTiff = 42;
    constexpr quint32 kPicture = 8;
    constexpr quint32 kExposure = 50;
    const auto noteSize = static_cast<quint32>(note.size());
    QByteArray block =
        "II" + byte_order::written(kTiff, false) + byte_order::written(kPicture, false) +
        byte_order::written(quint16(2), false) + field(0x010F, 2, 6, quint32(place) + noteSize) +
        field(0x8769, 4, 1, kExposure) + QByteArray(4, '\0');
    block = block.leftJustified(kExposure, '\0') + byte_order::written(quint16(1), false) +
            field(0x927C, 7, noteSize, quint32(place)) + QByteArray(4, '\0');
    return block.leftJustified(place, '\0') + note + QByteArray("Maker", 6);
}
