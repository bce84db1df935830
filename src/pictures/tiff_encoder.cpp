#include "tiff_encoder.h"

#include "ExifBlockWriter.h"
#include "byte_order.h"

#include <memory>
#include <vector>

#include <tiffio.h>

#include <QtEndian>

namespace {

tmsize_t onRead(thandle_t handle, void *bytes, tmsize_t length)
{
    return static_cast<QIODevice *>(handle)->read(static_cast<char *>(bytes), length);
}

tmsize_t onWrite(thandle_t handle, void *bytes, tmsize_t length)
{
    return encoding::writeAll(*static_cast<QIODevice *>(handle), bytes, length) ? length : -1;
}

toff_t onSeek(thandle_t handle, toff_t offset, int origin)
{
    auto *device = static_cast<QIODevice *>(handle);
    const qint64 start = origin == SEEK_CUR   ? device->pos()
                         : origin == SEEK_END ? device->size()
                                              : 0;
    device->seek(start + static_cast<qint64>(offset));
    return static_cast<toff_t>(device->pos());
}

int onClose(thandle_t)
{
    return 0;
}

toff_t onSize(thandle_t handle)
{
    return static_cast<toff_t>(static_cast<QIODevice *>(handle)->size());
}

using Tiff = std::unique_ptr<TIFF, decltype(&TIFFClose)>;

/// In the byte order of the EXIF data, which are copied as they are.
Tiff openTiff(QIODevice &device, const ExifTags &exif)
{
    const char *mode = exif.isEmpty() ? "w" : exif.hasBigEndianNumbers() ? "wb" : "wl";
    return {TIFFClientOpen("picture", mode, &device, onRead, onWrite, onSeek, onClose, onSize,
                           nullptr, nullptr),
            &TIFFClose};
}

/// The numbers of an entry in this machine's byte order; nothing for types of other sizes.
QByteArray nativeNumbers(const ExifTags::Entry &entry, bool isBigEndian)
{
    const bool isSwapped = isBigEndian != (Q_BYTE_ORDER == Q_BIG_ENDIAN);
    QByteArray numbers = entry.value;
    switch (entry.type) {
    case ExifTags::Byte:
    case ExifTags::Text:
    case ExifTags::Undefined:
        return numbers;
    case ExifTags::Short:
        if (isSwapped)
            qbswap<2>(entry.value.constData(), entry.count, numbers.data());
        return numbers;
    case ExifTags::Long:
    case ExifTags::SignedLong:
        if (isSwapped)
            qbswap<4>(entry.value.constData(), entry.count, numbers.data());
        return numbers;
    default:
        return {};
    }
}

/// A tag that libtiff does not know must be told to it first.
void setUnknownField(TIFF *tiff, const ExifTags::Entry &entry, const QByteArray &numbers)
{
    static char name[] = "EXIF";
    constexpr short kCountIsPassed = TIFF_VARIABLE2;
    const TIFFFieldInfo info = {entry.tag,
                                kCountIsPassed,
                                kCountIsPassed,
                                static_cast<TIFFDataType>(entry.type),
                                FIELD_CUSTOM,
                                1,
                                1,
                                name};
    if (TIFFMergeFieldInfo(tiff, &info, 1) == 0)
        TIFFSetField(tiff, entry.tag, entry.count, numbers.constData());
}

/// What the camera noted beside the data of exposure and place: texts, and tags that only some
/// programs know.
void setField(TIFF *tiff, const ExifTags::Entry &entry, bool isBigEndian)
{
    const QByteArray numbers = nativeNumbers(entry, isBigEndian);
    const TIFFField *field = TIFFFindField(tiff, entry.tag, TIFF_ANY);
    if (!field && !numbers.isEmpty())
        return setUnknownField(tiff, entry, numbers);
    const bool isText = field && TIFFFieldDataType(field) == TIFF_ASCII &&
                        !TIFFFieldPassCount(field) && entry.type == ExifTags::Text;
    if (isText)
        TIFFSetField(tiff, entry.tag, numbers.constData());
    else if (entry.tag == TIFFTAG_YCBCRPOSITIONING && entry.type == ExifTags::Short)
        TIFFSetField(tiff, entry.tag, *reinterpret_cast<const quint16 *>(numbers.constData()));
}

/// An EXIF block has the layout of a TIFF file, so the data of exposure and place, maker note
/// included, go to the same place in the file and stay valid.
bool writeExif(TIFF *tiff, QIODevice &device, const ExifTags &exif)
{
    if (exif.isEmpty())
        return true;
    ExifTags below = exif;
    below.clear(ExifTags::Directory::Picture);
    ExifBlockWriter writer(below);
    const QByteArray block = writer.write();
    constexpr qint64 kHeaderBytes = 8;
    const QByteArray rest = block.mid(kHeaderBytes);
    if (!device.seek(kHeaderBytes) || !encoding::writeAll(device, rest.constData(), rest.size()))
        return false;
    const quint32 exposure = writer.placeOf(ExifTags::Directory::Exposure);
    const quint32 place = writer.placeOf(ExifTags::Directory::Place);
    if (exposure != 0)
        TIFFSetField(tiff, TIFFTAG_EXIFIFD, uint64_t(exposure));
    if (place != 0)
        TIFFSetField(tiff, TIFFTAG_GPSIFD, uint64_t(place));
    for (const ExifTags::Entry &entry : exif.entries(ExifTags::Directory::Picture))
        setField(tiff, entry, exif.hasBigEndianNumbers());
    return true;
}

void setCompression(TIFF *tiff, const QImage &picture, const tiff_file::Compression &compression)
{
    if (compression.kind == TiffCompression::None) {
        TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_NONE);
        return;
    }
    const bool isDeflate = compression.kind == TiffCompression::Deflate;
    TIFFSetField(tiff, TIFFTAG_COMPRESSION,
                 isDeflate ? COMPRESSION_ADOBE_DEFLATE : COMPRESSION_LZW);
    TIFFSetField(tiff, TIFFTAG_PREDICTOR,
                 encoding::bitsPerSample(picture) == 32 ? PREDICTOR_FLOATINGPOINT
                                                        : PREDICTOR_HORIZONTAL);
    if (isDeflate)
        TIFFSetField(tiff, TIFFTAG_ZIPQUALITY, compression.effort);
}

void setLayout(TIFF *tiff, const QImage &picture, const tiff_file::Compression &compression)
{
    const bool isPremultiplied =
        picture.pixelFormat().premultiplied() == QPixelFormat::Premultiplied;
    const uint16_t kindOfAlpha = isPremultiplied ? EXTRASAMPLE_ASSOCALPHA : EXTRASAMPLE_UNASSALPHA;
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, static_cast<uint32_t>(picture.width()));
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, static_cast<uint32_t>(picture.height()));
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, encoding::bitsPerSample(picture));
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, encoding::samplesPerPixel(picture));
    if (encoding::bitsPerSample(picture) == 32)
        TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_IEEEFP);
    if (picture.hasAlphaChannel())
        TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &kindOfAlpha);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    setCompression(tiff, picture, compression);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, TIFFDefaultStripSize(tiff, 0));
}

void setResolution(TIFF *tiff, const QImage &picture)
{
    const encoding::Resolution resolution = encoding::resolutionOf(picture);
    TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    TIFFSetField(tiff, TIFFTAG_XRESOLUTION, resolution.x);
    TIFFSetField(tiff, TIFFTAG_YRESOLUTION, resolution.y);
}

/// Some versions of libtiff take the datasets for words of four bytes, and swap those in files of
/// the other byte order; readers want the bytes as they are.
void setDatasets(TIFF *tiff, QByteArray datasets)
{
    if (datasets.isEmpty())
        return;
    const TIFFField *field = TIFFFindField(tiff, TIFFTAG_RICHTIFFIPTC, TIFF_ANY);
    const bool areWords = field && TIFFFieldDataType(field) == TIFF_LONG;
    const qsizetype itemBytes = areWords ? 4 : 1;
    datasets.append((itemBytes - datasets.size() % itemBytes) % itemBytes, '\0');
    const auto items = static_cast<uint32_t>(datasets.size() / itemBytes);
    if (areWords && TIFFIsByteSwapped(tiff))
        qbswap<4>(datasets.constData(), items, datasets.data());
    TIFFSetField(tiff, TIFFTAG_RICHTIFFIPTC, items, datasets.constData());
}

/// The camera's data come first, so that what the picture itself tells overrides them.
bool setTags(TIFF *tiff, QIODevice &device, const QImage &picture, const PictureMetadata &metadata,
             const tiff_file::Compression &compression)
{
    if (!writeExif(tiff, device, metadata.exif))
        return false;
    setLayout(tiff, picture, compression);
    setResolution(tiff, picture);
    if (!metadata.colourProfile.isEmpty())
        TIFFSetField(tiff, TIFFTAG_ICCPROFILE, static_cast<uint32_t>(metadata.colourProfile.size()),
                     metadata.colourProfile.constData());
    if (!metadata.xmp.isEmpty())
        TIFFSetField(tiff, TIFFTAG_XMLPACKET, static_cast<uint32_t>(metadata.xmp.size()),
                     metadata.xmp.constData());
    setDatasets(tiff, metadata.iptc);
    return true;
}

bool writeRows(TIFF *tiff, const QImage &picture, const EncodeProgress &progress)
{
    std::vector<uint8_t> row(encoding::bytesPerRow(picture));
    for (int y = 0; y < picture.height(); ++y) {
        encoding::unpackRow(picture, y, row.data());
        if (TIFFWriteScanline(tiff, row.data(), static_cast<uint32_t>(y), 0) != 1)
            return false;
        if (progress)
            progress(double(y + 1) / picture.height());
    }
    return true;
}

} // namespace

QString tiff_file::encode(const QImage &picture, const PictureMetadata &metadata, QIODevice &device,
                          const EncodeProgress &progress, const Compression &compression)
{
    const Tiff file = openTiff(device, metadata.exif);
    if (file && setTags(file.get(), device, picture, metadata, compression) &&
        writeRows(file.get(), picture, progress) && TIFFWriteDirectory(file.get()))
        return {};
    return PictureEncoder::tr("the TIFF file could not be written");
}
