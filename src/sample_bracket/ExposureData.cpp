#include "ExposureData.h"

#include <libexif/exif-data.h>
#include <libexif/exif-utils.h>
#include <zlib.h>

#include <QtEndian>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace sample {

namespace {

constexpr ExifByteOrder kByteOrder = EXIF_BYTE_ORDER_INTEL;

/// Fills an EXIF record entry by entry.
class ExifWriter
{
public:
    ExifWriter()
    {
        if (data_)
            exif_data_set_byte_order(data_.get(), kByteOrder);
    }

    void addText(ExifIfd ifd, ExifTag tag, const QByteArray &text)
    {
        // The closing zero belongs to the entry.
        const auto count = static_cast<unsigned long>(text.size()) + 1;
        if (uchar *bytes = add(ifd, tag, EXIF_FORMAT_ASCII, count))
            std::memcpy(bytes, text.constData(), count);
    }

    void addBytes(ExifTag tag, const QByteArray &value)
    {
        const auto count = static_cast<unsigned long>(value.size());
        if (uchar *bytes = add(EXIF_IFD_EXIF, tag, EXIF_FORMAT_UNDEFINED, count))
            std::memcpy(bytes, value.constData(), count);
    }

    void addShort(ExifIfd ifd, ExifTag tag, int value)
    {
        if (uchar *bytes = add(ifd, tag, EXIF_FORMAT_SHORT, 1))
            exif_set_short(bytes, kByteOrder, static_cast<ExifShort>(value));
    }

    void addLong(ExifTag tag, int value)
    {
        if (uchar *bytes = add(EXIF_IFD_EXIF, tag, EXIF_FORMAT_LONG, 1))
            exif_set_long(bytes, kByteOrder, static_cast<ExifLong>(value));
    }

    void addRational(ExifTag tag, unsigned numerator, unsigned denominator)
    {
        if (uchar *bytes = add(EXIF_IFD_EXIF, tag, EXIF_FORMAT_RATIONAL, 1))
            exif_set_rational(bytes, kByteOrder, {numerator, denominator});
    }

    void addSignedRational(ExifTag tag, int numerator, int denominator)
    {
        if (uchar *bytes = add(EXIF_IFD_EXIF, tag, EXIF_FORMAT_SRATIONAL, 1))
            exif_set_srational(bytes, kByteOrder, {numerator, denominator});
    }

    QByteArray block() const
    {
        if (!data_)
            return {};
        uchar *bytes = nullptr;
        unsigned size = 0;
        exif_data_save_data(data_.get(), &bytes, &size);
        const std::unique_ptr<uchar, decltype(&std::free)> owner(bytes, &std::free);
        return {reinterpret_cast<const char *>(bytes), static_cast<int>(size)};
    }

private:
    /// Memory of a new entry with so many values; null when there is none.
    uchar *add(ExifIfd ifd, ExifTag tag, ExifFormat format, unsigned long count)
    {
        const std::unique_ptr<ExifMem, decltype(&exif_mem_unref)> memory(exif_mem_new_default(),
                                                                         &exif_mem_unref);
        if (!data_ || !memory)
            return nullptr;
        ExifEntry *entry = exif_entry_new_mem(memory.get());
        if (!entry)
            return nullptr;
        entry->tag = tag;
        entry->format = format;
        entry->components = count;
        entry->size = static_cast<unsigned>(count * exif_format_get_size(format));
        entry->data = static_cast<uchar *>(exif_mem_alloc(memory.get(), entry->size));
        exif_content_add_entry(data_->ifd[ifd], entry);
        uchar *bytes = entry->data;
        exif_entry_unref(entry);
        return bytes;
    }

    std::unique_ptr<ExifData, decltype(&exif_data_unref)> data_{exif_data_new(), &exif_data_unref};
};

QByteArray paddedNumber(int number, int digits)
{
    return QByteArray::number(number).rightJustified(digits, '0');
}

/// "2024:06:15 10:42:07". Put together by hand: the first QDateTime::toString of a process sets up
/// Qt's calendars, which several threads at once do not survive.
QByteArray exifTime(const QDateTime &moment)
{
    const QDate date = moment.date();
    const QTime time = moment.time();
    return paddedNumber(date.year(), 4) + ':' + paddedNumber(date.month(), 2) + ':' +
           paddedNumber(date.day(), 2) + ' ' + paddedNumber(time.hour(), 2) + ':' +
           paddedNumber(time.minute(), 2) + ':' + paddedNumber(time.second(), 2);
}

/// Big-endian length and more, as both file formats have them.
template <typename Integer>
QByteArray bigEndian(Integer value)
{
    QByteArray bytes(sizeof value, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray pngChunk(const QByteArray &type, const QByteArray &content)
{
    const QByteArray body = type + content;
    const uLong sum =
        crc32(0, reinterpret_cast<const Bytef *>(body.constData()), static_cast<uInt>(body.size()));
    return bigEndian(static_cast<quint32>(content.size())) + body +
           bigEndian(static_cast<quint32>(sum));
}

} // namespace

QByteArray exifBlock(const ExposureData &exposure, QSize size)
{
    ExifWriter writer;
    const QByteArray taken = exifTime(exposure.takenAt);
    writer.addText(EXIF_IFD_0, EXIF_TAG_MAKE, "Vesk");
    writer.addText(EXIF_IFD_0, EXIF_TAG_MODEL, "Vesk Sample Camera");
    writer.addShort(EXIF_IFD_0, EXIF_TAG_ORIENTATION, 1);
    writer.addText(EXIF_IFD_0, EXIF_TAG_DATE_TIME, taken);
    // Times that a shutter has are powers of two, so this fraction is exact.
    constexpr double kTimeUnits = 1 << 20;
    writer.addRational(EXIF_TAG_EXPOSURE_TIME,
                       static_cast<unsigned>(std::lround(exposure.exposureTime * kTimeUnits)),
                       static_cast<unsigned>(kTimeUnits));
    writer.addRational(EXIF_TAG_FNUMBER,
                       static_cast<unsigned>(std::lround(exposure.fNumber * 10.0)), 10);
    writer.addShort(EXIF_IFD_EXIF, EXIF_TAG_ISO_SPEED_RATINGS, exposure.iso);
    writer.addBytes(EXIF_TAG_EXIF_VERSION, "0230");
    writer.addText(EXIF_IFD_EXIF, EXIF_TAG_DATE_TIME_ORIGINAL, taken);
    writer.addText(EXIF_IFD_EXIF, EXIF_TAG_SUB_SEC_TIME_ORIGINAL,
                   paddedNumber(exposure.takenAt.time().msec(), 3));
    writer.addSignedRational(EXIF_TAG_EXPOSURE_BIAS_VALUE,
                             static_cast<int>(std::lround(exposure.stops * 100.0)), 100);
    writer.addLong(EXIF_TAG_PIXEL_X_DIMENSION, size.width());
    writer.addLong(EXIF_TAG_PIXEL_Y_DIMENSION, size.height());
    return writer.block();
}

QByteArray withExif(const QByteArray &encoded, const QByteArray &exif)
{
    QByteArray result = encoded;
    if (encoded.startsWith("\xFF\xD8")) {
        const auto length = static_cast<quint16>(exif.size() + 2);
        result.insert(2, "\xFF\xE1" + bigEndian(length) + exif);
    } else if (encoded.startsWith("\x89PNG")) {
        // After the signature (8 bytes) and the header chunk (25); PNG leaves out the "Exif" mark.
        result.insert(33, pngChunk("eXIf", exif.mid(6)));
    }
    return result;
}

} // namespace sample
