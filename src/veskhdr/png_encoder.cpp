#include "encoders.h"

#include <csetjmp>
#include <vector>

#include <png.h>

namespace {

// Measured on merged photographs: see docs/user-guide of the program. Higher levels take many times
// as long for a few percent.
constexpr int kCompressionLevel = 3;
constexpr int kFilter = PNG_FILTER_UP;

/// Everything that the library's calls need; they jump back on error, so the functions that make
/// them own nothing.
struct PngWriter
{
    ~PngWriter() { png_destroy_write_struct(&png, &info); }

    png_structp png = nullptr;
    png_infop info = nullptr;
    QIODevice *device = nullptr;
};

void onWrite(png_structp png, png_bytep bytes, size_t length)
{
    auto *device = static_cast<QIODevice *>(png_get_io_ptr(png));
    const auto wanted = static_cast<qint64>(length);
    if (device->write(reinterpret_cast<const char *>(bytes), wanted) != wanted)
        png_error(png, "write");
}

void onFlush(png_structp)
{
}

[[noreturn]] void onError(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}

void onWarning(png_structp, png_const_charp)
{
}

bool create(PngWriter &writer)
{
    writer.png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, onError, onWarning);
    if (!writer.png)
        return false;
    writer.info = png_create_info_struct(writer.png);
    return writer.info;
}

void setMetadata(PngWriter &writer, const QImage &picture, const PictureMetadata &metadata)
{
    if (!metadata.colourProfile.isEmpty())
        png_set_iCCP(writer.png, writer.info, "ICC profile", PNG_COMPRESSION_TYPE_BASE,
                     reinterpret_cast<png_const_bytep>(metadata.colourProfile.constData()),
                     static_cast<png_uint_32>(metadata.colourProfile.size()));
    if (!metadata.exif.isEmpty())
        png_set_eXIf_1(writer.png, writer.info, static_cast<png_uint_32>(metadata.exif.size()),
                       reinterpret_cast<png_bytep>(const_cast<char *>(metadata.exif.constData())));
    png_set_pHYs(writer.png, writer.info, static_cast<png_uint_32>(picture.dotsPerMeterX()),
                 static_cast<png_uint_32>(picture.dotsPerMeterY()), PNG_RESOLUTION_METER);
}

bool write(PngWriter &writer, const QImage &picture, const PictureMetadata &metadata,
           const EncodeProgress &progress)
{
    if (setjmp(png_jmpbuf(writer.png)))
        return false;
    png_set_write_fn(writer.png, writer.device, onWrite, onFlush);
    png_set_IHDR(writer.png, writer.info, static_cast<png_uint_32>(picture.width()),
                 static_cast<png_uint_32>(picture.height()), 8, PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_BASE, PNG_FILTER_TYPE_BASE);
    png_set_compression_level(writer.png, kCompressionLevel);
    png_set_filter(writer.png, PNG_FILTER_TYPE_BASE, kFilter);
    setMetadata(writer, picture, metadata);
    png_write_info(writer.png, writer.info);
    // Words 0xAARRGGBB in memory, low byte first: blue, green, red, unused.
    if (Q_BYTE_ORDER == Q_LITTLE_ENDIAN) {
        png_set_bgr(writer.png);
        png_set_filler(writer.png, 0, PNG_FILLER_AFTER);
    } else {
        png_set_filler(writer.png, 0, PNG_FILLER_BEFORE);
    }
    for (int y = 0; y < picture.height(); ++y) {
        png_write_row(writer.png, picture.constScanLine(y));
        if (progress)
            progress(double(y + 1) / picture.height());
    }
    png_write_end(writer.png, nullptr);
    return true;
}

} // namespace

QString encodePng(const QImage &picture, const PictureMetadata &metadata, QIODevice &device,
                  const EncodeProgress &progress)
{
    PngWriter writer;
    writer.device = &device;
    if (!create(writer) || !write(writer, picture, metadata, progress))
        return QStringLiteral("the PNG file could not be written");
    return {};
}
