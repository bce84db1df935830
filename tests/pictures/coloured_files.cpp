#include "coloured_files.h"

#include <QTemporaryFile>
#include <QtEndian>

#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>
#include <tiffio.h>
#include <zlib.h>

namespace {

J_COLOR_SPACE spaceOf(int channels)
{
    return channels == 1 ? JCS_GRAYSCALE : channels == 3 ? JCS_RGB : JCS_CMYK;
}

void writeRows(jpeg_compress_struct &codec, const QByteArray &numbers)
{
    const qsizetype rowBytes = qsizetype(codec.image_width) * codec.input_components;
    while (codec.next_scanline < codec.image_height) {
        auto *row = reinterpret_cast<JSAMPROW>(
            const_cast<char *>(numbers.constData() + rowBytes * codec.next_scanline));
        jpeg_write_scanlines(&codec, &row, 1);
    }
}

} // namespace

QByteArray coloured_files::made(const Jpeg &jpeg)
{
    jpeg_compress_struct codec = {};
    jpeg_error_mgr errors;
    codec.err = jpeg_std_error(&errors);
    jpeg_create_compress(&codec);
    unsigned char *bytes = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&codec, &bytes, &length);
    codec.image_width = JDIMENSION(jpeg.size.width());
    codec.image_height = JDIMENSION(jpeg.size.height());
    codec.input_components = jpeg.channels;
    codec.in_color_space = spaceOf(jpeg.channels);
    jpeg_set_defaults(&codec);
    jpeg_set_quality(&codec, 100, TRUE);
    codec.write_Adobe_marker = jpeg.hasAdobeMark ? TRUE : FALSE;
    jpeg_start_compress(&codec, TRUE);
    const QByteArray exif = QByteArray("Exif\0\0", 6) + jpeg.exif;
    if (!jpeg.exif.isEmpty())
        jpeg_write_marker(&codec, JPEG_APP0 + 1, reinterpret_cast<const JOCTET *>(exif.constData()),
                          unsigned(exif.size()));
    if (!jpeg.profile.isEmpty())
        jpeg_write_icc_profile(&codec, reinterpret_cast<const JOCTET *>(jpeg.profile.constData()),
                               unsigned(jpeg.profile.size()));
    writeRows(codec, jpeg.numbers);
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    const QByteArray file(reinterpret_cast<const char *>(bytes), qsizetype(length));
    std::free(bytes);
    return file;
}

QByteArray coloured_files::made(const Tiff &tiff)
{
    QTemporaryFile place;
    if (!place.open())
        return {};
    TIFF *const file = TIFFOpen(qPrintable(place.fileName()), "w");
    TIFFSetField(file, TIFFTAG_IMAGEWIDTH, tiff.size.width());
    TIFFSetField(file, TIFFTAG_IMAGELENGTH, tiff.size.height());
    TIFFSetField(file, TIFFTAG_PHOTOMETRIC, tiff.photometric);
    TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, tiff.bits);
    TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, tiff.channels);
    TIFFSetField(file, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(file, TIFFTAG_ROWSPERSTRIP, 7);
    if (!tiff.profile.isEmpty())
        TIFFSetField(file, TIFFTAG_ICCPROFILE, quint32(tiff.profile.size()),
                     tiff.profile.constData());
    const qsizetype rowBytes = qsizetype(tiff.size.width()) * tiff.channels * tiff.bits / 8;
    for (int y = 0; y < tiff.size.height(); ++y)
        TIFFWriteScanline(file, const_cast<char *>(tiff.numbers.constData() + rowBytes * y),
                          quint32(y), 0);
    TIFFClose(file);
    return place.readAll();
}

QByteArray coloured_files::chunk(const char *name, const QByteArray &bytes)
{
    const auto number = [](quint32 value) {
        QByteArray four(4, '\0');
        qToBigEndian(value, four.data());
        return four;
    };
    const QByteArray body = name + bytes;
    const auto *first = reinterpret_cast<const Bytef *>(body.constData());
    return number(quint32(bytes.size())) + body +
           number(quint32(crc32(0, first, uInt(body.size()))));
}

QByteArray coloured_files::profileChunk(const QByteArray &profile)
{
    return chunk("iCCP", QByteArray("name\0\0", 6) + qCompress(profile).mid(4));
}

QByteArray coloured_files::withChunks(const QByteArray &png, const QList<QByteArray> &chunks)
{
    constexpr qsizetype kHeaderEnd = 33;
    return png.left(kHeaderEnd) + chunks.join() + png.mid(kHeaderEnd);
}
