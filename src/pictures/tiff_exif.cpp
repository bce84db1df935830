#include "tiff_exif.h"

#include "exif_metadata.h"

#include <vector>

namespace {

bool isRational(TIFFDataType type)
{
    return type == TIFF_RATIONAL || type == TIFF_SRATIONAL;
}

/// One of the entry's numbers, 0 for types that hold none.
double numberOf(const ExifEntry &entry, unsigned index, ExifByteOrder order)
{
    const unsigned char *at = entry.data + index * exif_format_get_size(entry.format);
    switch (entry.format) {
    case EXIF_FORMAT_BYTE:
    case EXIF_FORMAT_UNDEFINED:
        return *at;
    case EXIF_FORMAT_SHORT:
        return exif_get_short(at, order);
    case EXIF_FORMAT_LONG:
        return exif_get_long(at, order);
    case EXIF_FORMAT_SLONG:
        return exif_get_slong(at, order);
    case EXIF_FORMAT_RATIONAL: {
        const ExifRational ratio = exif_get_rational(at, order);
        return ratio.denominator ? double(ratio.numerator) / ratio.denominator : 0.0;
    }
    case EXIF_FORMAT_SRATIONAL: {
        const ExifSRational ratio = exif_get_srational(at, order);
        return ratio.denominator ? double(ratio.numerator) / ratio.denominator : 0.0;
    }
    default:
        return 0.0;
    }
}

template <typename Number>
std::vector<Number> numbersOf(const ExifEntry &entry, ExifByteOrder order)
{
    std::vector<Number> numbers;
    for (unsigned i = 0; i < entry.components; ++i)
        numbers.push_back(static_cast<Number>(numberOf(entry, i, order)));
    return numbers;
}

template <typename Number>
void setNumbers(TIFF *tiff, const TIFFField *field, const ExifEntry &entry, ExifByteOrder order)
{
    const std::vector<Number> numbers = numbersOf<Number>(entry, order);
    const auto tag = static_cast<uint32_t>(entry.tag);
    if (TIFFFieldPassCount(field))
        TIFFSetField(tiff, tag, static_cast<int>(numbers.size()), numbers.data());
    else if (TIFFFieldWriteCount(field) == static_cast<int>(numbers.size()))
        TIFFSetField(tiff, tag, numbers.data());
}

void setText(TIFF *tiff, const ExifEntry &entry)
{
    const QByteArray text(reinterpret_cast<const char *>(entry.data), static_cast<int>(entry.size));
    TIFFSetField(tiff, static_cast<uint32_t>(entry.tag), text.constData());
}

/// The library takes each tag in a form of its own: by value or as an array, with its length or
/// without, ratios as floating-point numbers of either size.
void setField(TIFF *tiff, const TIFFField *field, const ExifEntry &entry, ExifByteOrder order)
{
    constexpr int kDoubleBytes = 8;
    const TIFFDataType type = TIFFFieldDataType(field);
    const auto tag = static_cast<uint32_t>(entry.tag);
    const bool isSingle = !TIFFFieldPassCount(field) && TIFFFieldWriteCount(field) == 1;
    if (type == TIFF_ASCII)
        return setText(tiff, entry);
    if (isSingle && isRational(type))
        TIFFSetField(tiff, tag, numberOf(entry, 0, order));
    else if (isSingle)
        TIFFSetField(tiff, tag, static_cast<uint32_t>(numberOf(entry, 0, order)));
    else if (isRational(type) && TIFFFieldSetGetSize(field) == kDoubleBytes)
        setNumbers<double>(tiff, field, entry, order);
    else if (isRational(type))
        setNumbers<float>(tiff, field, entry, order);
    else if (type == TIFF_SHORT)
        setNumbers<uint16_t>(tiff, field, entry, order);
    else if (type == TIFF_BYTE || type == TIFF_UNDEFINED)
        setNumbers<uint8_t>(tiff, field, entry, order);
}

bool isSound(const ExifEntry &entry)
{
    return entry.data && entry.components > 0 &&
           entry.components * exif_format_get_size(entry.format) <= entry.size;
}

void setFields(TIFF *tiff, const ExifContent &content, ExifByteOrder order)
{
    for (unsigned i = 0; i < content.count; ++i) {
        const ExifEntry &entry = *content.entries[i];
        const TIFFField *field = TIFFFindField(tiff, static_cast<uint32_t>(entry.tag), TIFF_ANY);
        if (field && isSound(entry) && entry.tag != EXIF_TAG_MAKER_NOTE)
            setField(tiff, field, entry, order);
    }
}

/// Writes the directory and leaves in offset where it is, or 0 when there is nothing to write.
bool appendDirectory(TIFF *tiff, int (*create)(TIFF *), const ExifContent &content,
                     ExifByteOrder order, uint64_t &offset)
{
    if (content.count == 0)
        return true;
    if (create(tiff) != 0)
        return false;
    setFields(tiff, content, order);
    const bool isWritten = TIFFWriteCustomDirectory(tiff, &offset) == 1;
    TIFFFreeDirectory(tiff); // making the next one would only forget this one
    return isWritten;
}

} // namespace

void tiff_exif::setTexts(TIFF *tiff, const QByteArray &block)
{
    const exif::Data data = exif::parse(block);
    if (!data)
        return;
    for (const ExifTag tag :
         {EXIF_TAG_IMAGE_DESCRIPTION, EXIF_TAG_MAKE, EXIF_TAG_MODEL, EXIF_TAG_SOFTWARE,
          EXIF_TAG_DATE_TIME, EXIF_TAG_ARTIST, EXIF_TAG_COPYRIGHT}) {
        const ExifEntry *entry = exif_content_get_entry(data->ifd[EXIF_IFD_0], tag);
        if (entry && entry->format == EXIF_FORMAT_ASCII && isSound(*entry))
            setText(tiff, *entry);
    }
}

bool tiff_exif::appendDirectories(TIFF *tiff, const QByteArray &block)
{
    const exif::Data data = exif::parse(block);
    if (!data)
        return true;
    const ExifByteOrder order = exif_data_get_byte_order(data.get());
    uint64_t exposure = 0;
    uint64_t place = 0;
    if (!appendDirectory(tiff, TIFFCreateEXIFDirectory, *data->ifd[EXIF_IFD_EXIF], order,
                         exposure) ||
        !appendDirectory(tiff, TIFFCreateGPSDirectory, *data->ifd[EXIF_IFD_GPS], order, place))
        return false;
    if (exposure == 0 && place == 0)
        return true;
    if (TIFFSetDirectory(tiff, 0) != 1)
        return false;
    if (exposure != 0)
        TIFFSetField(tiff, TIFFTAG_EXIFIFD, exposure);
    if (place != 0)
        TIFFSetField(tiff, TIFFTAG_GPSIFD, place);
    return TIFFRewriteDirectory(tiff) == 1;
}
