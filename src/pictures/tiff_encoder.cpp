#include "encoders.h"
#include "tiff_exif.h"

#include <memory>
#include <vector>

#include <tiffio.h>

namespace {

tmsize_t onRead(thandle_t handle, void *bytes, tmsize_t length)
{
    return static_cast<QIODevice *>(handle)->read(static_cast<char *>(bytes), length);
}

tmsize_t onWrite(thandle_t handle, void *bytes, tmsize_t length)
{
    return writeAll(*static_cast<QIODevice *>(handle), bytes, length) ? length : -1;
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

Tiff openTiff(QIODevice &device)
{
    return {TIFFClientOpen("picture", "w", &device, onRead, onWrite, onSeek, onClose, onSize,
                           nullptr, nullptr),
            &TIFFClose};
}

void setTags(TIFF *tiff, const QImage &picture, const PictureMetadata &metadata)
{
    constexpr double kCentimetresPerMetre = 100.0;
    const uint16_t kindOfAlpha = picture.format() == QImage::Format_ARGB32_Premultiplied
                                     ? EXTRASAMPLE_ASSOCALPHA
                                     : EXTRASAMPLE_UNASSALPHA;
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, static_cast<uint32_t>(picture.width()));
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, static_cast<uint32_t>(picture.height()));
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, samplesPerPixel(picture));
    if (picture.hasAlphaChannel())
        TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &kindOfAlpha);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
    TIFFSetField(tiff, TIFFTAG_PREDICTOR, PREDICTOR_HORIZONTAL);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, TIFFDefaultStripSize(tiff, 0));
    TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_CENTIMETER);
    TIFFSetField(tiff, TIFFTAG_XRESOLUTION, picture.dotsPerMeterX() / kCentimetresPerMetre);
    TIFFSetField(tiff, TIFFTAG_YRESOLUTION, picture.dotsPerMeterY() / kCentimetresPerMetre);
    tiff_exif::setTexts(tiff, metadata.exif);
    if (!metadata.colourProfile.isEmpty())
        TIFFSetField(tiff, TIFFTAG_ICCPROFILE, static_cast<uint32_t>(metadata.colourProfile.size()),
                     metadata.colourProfile.constData());
}

bool writeRows(TIFF *tiff, const QImage &picture, const EncodeProgress &progress)
{
    std::vector<uint8_t> row(static_cast<size_t>(picture.width()) *
                             static_cast<size_t>(samplesPerPixel(picture)));
    for (int y = 0; y < picture.height(); ++y) {
        unpackRow(picture, y, row.data());
        if (TIFFWriteScanline(tiff, row.data(), static_cast<uint32_t>(y), 0) != 1)
            return false;
        if (progress)
            progress(double(y + 1) / picture.height());
    }
    return true;
}

} // namespace

QString encodeTiff(const QImage &picture, const PictureMetadata &metadata, QIODevice &device,
                   const EncodeProgress &progress)
{
    const Tiff tiff = openTiff(device);
    if (tiff) {
        setTags(tiff.get(), picture, metadata);
        if (writeRows(tiff.get(), picture, progress) && TIFFWriteDirectory(tiff.get()) &&
            tiff_exif::appendDirectories(tiff.get(), metadata.exif))
            return {};
    }
    return PictureEncoder::tr("the TIFF file could not be written");
}
