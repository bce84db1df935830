#include "tiff_decoder.h"

#include "ForeignColours.h"
#include "TiffRows.h"
#include "UprightRows.h"
#include "colour_profile.h"
#include "exif_orientation.h"
#include "picture_completeness.h"
#include "tiff_file.h"
#include "tiff_light.h"
#include "true_colours.h"

#include <QColorSpace>
#include <QRgba64>

#include <climits>

namespace {

constexpr int kMostChannels = 16;

/// What the numbers of a pixel mean.
struct Layout
{
    QSize size;
    std::uint16_t bits = 8;
    std::uint16_t channels = 1; ///< of each pixel in the file
    std::uint16_t photometric = PHOTOMETRIC_MINISBLACK;
    bool hasAlpha = false; ///< the channel behind the colours
    bool isMultiplied = false;
    bool isFloating = false;

    bool isForeign = false; ///< inks or Lab, that are to become red, green and blue

    bool isInverted() const { return photometric == PHOTOMETRIC_MINISWHITE; }
    bool isLab() const
    {
        return photometric == PHOTOMETRIC_CIELAB || photometric == PHOTOMETRIC_ICCLAB;
    }
    int colours() const
    {
        if (photometric == PHOTOMETRIC_SEPARATED)
            return 4;
        return photometric == PHOTOMETRIC_RGB || isLab() ? 3 : 1;
    }
};

/// As Qt's reader has it, a channel behind the colours is alpha unless the file says nothing of it,
/// and behind red, green and blue even then.
void readAlpha(TIFF *tiff, Layout &layout)
{
    std::uint16_t count = 0;
    std::uint16_t *kinds = nullptr;
    const bool isTold = TIFFGetField(tiff, TIFFTAG_EXTRASAMPLES, &count, &kinds) == 1 &&
                        count > 0 && kinds[0] != EXTRASAMPLE_UNSPECIFIED;
    layout.hasAlpha = layout.channels > layout.colours() && (isTold || layout.colours() == 3);
    layout.isMultiplied = layout.hasAlpha && isTold && kinds[0] == EXTRASAMPLE_ASSOCALPHA;
}

Layout layoutOf(TIFF *tiff)
{
    Layout layout;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint16_t kind = SAMPLEFORMAT_UINT;
    TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &width);
    TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &height);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_BITSPERSAMPLE, &layout.bits);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLESPERPIXEL, &layout.channels);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLEFORMAT, &kind);
    if (!TIFFGetField(tiff, TIFFTAG_PHOTOMETRIC, &layout.photometric))
        layout.photometric = PHOTOMETRIC_MASK; // not ours
    const bool isSensible = width <= INT_MAX && height <= INT_MAX;
    layout.size = isSensible ? QSize(int(width), int(height)) : QSize();
    layout.isFloating = kind == SAMPLEFORMAT_IEEEFP;
    readAlpha(tiff, layout);
    return layout;
}

/// Inks are of other colours when the file says so.
bool isForeign(TIFF *tiff, const Layout &layout)
{
    std::uint16_t inks = INKSET_CMYK;
    TIFFGetFieldDefaulted(tiff, TIFFTAG_INKSET, &inks);
    return layout.isLab() || (layout.photometric == PHOTOMETRIC_SEPARATED && inks == INKSET_CMYK);
}

/// Whether Qt's reader would lose something of it.
bool isOurs(const Layout &layout)
{
    const bool isColour = layout.photometric == PHOTOMETRIC_RGB;
    const bool isGrey = layout.photometric == PHOTOMETRIC_MINISBLACK || layout.isInverted();
    const bool isKnown = isColour || isGrey || layout.isForeign;
    if (!isKnown || layout.size.isEmpty() || layout.channels < layout.colours() ||
        layout.channels > kMostChannels)
        return false;
    return layout.bits == 16 || (layout.bits == 8 && layout.isForeign) ||
           (layout.bits == 8 && layout.hasAlpha);
}

QImage::Format formatOf(const Layout &layout, ReadOptions::Depth depth)
{
    const bool isDeep = layout.bits == 16 && depth == ReadOptions::Depth::AsStored;
    if (layout.isForeign)
        return isDeep ? QImage::Format_RGBX64 : QImage::Format_RGB32;
    if (layout.hasAlpha)
        return isDeep ? QImage::Format_RGBA64 : QImage::Format_ARGB32;
    if (layout.colours() == 1)
        return isDeep ? QImage::Format_Grayscale16 : QImage::Format_Grayscale8;
    return isDeep ? QImage::Format_RGBX64 : QImage::Format_RGB32;
}

quint16 wide(quint8 level)
{
    return quint16(level * 257);
}

quint16 wide(quint16 level)
{
    return level;
}

template <typename Number>
QRgba64 pixelOf(const Number *numbers, const Layout &layout)
{
    const int colours = layout.colours();
    const quint16 alpha = layout.hasAlpha ? wide(numbers[colours]) : 0xFFFF;
    const quint16 mask = layout.isInverted() ? 0xFFFF : 0;
    const QRgba64 pixel =
        QRgba64::fromRgba64(wide(numbers[0]) ^ mask, wide(numbers[colours / 2]) ^ mask,
                            wide(numbers[colours - 1]) ^ mask, alpha);
    return layout.isMultiplied ? pixel.unpremultiplied() : pixel;
}

/// A row of the file as a row of the picture, whose pixels toPixel makes.
template <typename Number, typename Pixel, typename ToPixel>
void convertRow(const uchar *source, uchar *target, const Layout &layout, ToPixel toPixel)
{
    const auto *numbers = reinterpret_cast<const Number *>(source);
    auto *pixels = reinterpret_cast<Pixel *>(target);
    for (int x = 0; x < layout.size.width(); ++x, numbers += layout.channels)
        pixels[x] = toPixel(pixelOf(numbers, layout));
}

template <typename Number>
void convertRow(const uchar *source, uchar *target, const Layout &layout, QImage::Format format)
{
    switch (format) {
    case QImage::Format_Grayscale8:
        return convertRow<Number, quint8>(source, target, layout,
                                          [](QRgba64 pixel) { return pixel.red8(); });
    case QImage::Format_Grayscale16:
        return convertRow<Number, quint16>(source, target, layout,
                                           [](QRgba64 pixel) { return pixel.red(); });
    case QImage::Format_RGBX64:
    case QImage::Format_RGBA64:
        return convertRow<Number, QRgba64>(source, target, layout,
                                           [](QRgba64 pixel) { return pixel; });
    default:
        return convertRow<Number, QRgb>(source, target, layout,
                                        [](QRgba64 pixel) { return pixel.toArgb32(); });
    }
}

QByteArray profileIn(TIFF *tiff)
{
    std::uint32_t length = 0;
    const void *profile = nullptr;
    return TIFFGetField(tiff, TIFFTAG_ICCPROFILE, &length, &profile) == 1 && profile
               ? QByteArray(static_cast<const char *>(profile), int(length))
               : QByteArray();
}

ForeignColours::Source foreignSource(TIFF *tiff, const Layout &layout)
{
    using Kind = ForeignColours::Kind;
    const Kind lab = layout.photometric == PHOTOMETRIC_CIELAB ? Kind::CieLab : Kind::IccLab;
    return {layout.isLab() ? lab : Kind::Inks, layout.bits, layout.channels,
            layout.isLab() ? QByteArray() : profileIn(tiff)};
}

bool readForeignRows(TIFF *tiff, const Layout &layout, UprightRows &rows, QImage::Format format)
{
    TiffRows source(tiff);
    ForeignColours colours(foreignSource(tiff, layout), format);
    for (int y = 0; y < layout.size.height(); ++y) {
        const uchar *row = source.row(static_cast<std::uint32_t>(y));
        if (!row)
            return false;
        colours.convertRow(row, rows.row(y), layout.size.width());
        rows.rowWritten(y);
    }
    return true;
}

bool readRows(TIFF *tiff, const Layout &layout, UprightRows &rows, QImage::Format format)
{
    if (layout.isForeign)
        return readForeignRows(tiff, layout, rows, format);
    TiffRows source(tiff);
    for (int y = 0; y < layout.size.height(); ++y) {
        const uchar *row = source.row(static_cast<std::uint32_t>(y));
        if (!row)
            return false;
        if (layout.bits == 8)
            convertRow<quint8>(row, rows.row(y), layout, format);
        else
            convertRow<quint16>(row, rows.row(y), layout, format);
        rows.rowWritten(y);
    }
    return true;
}

void applyResolution(TIFF *tiff, QImage &picture)
{
    float x = 0;
    float y = 0;
    std::uint16_t unit = RESUNIT_INCH;
    TIFFGetFieldDefaulted(tiff, TIFFTAG_RESOLUTIONUNIT, &unit);
    const double perMetre = unit == RESUNIT_INCH         ? 100.0 / 2.54
                            : unit == RESUNIT_CENTIMETER ? 100.0
                                                         : 0.0;
    constexpr double kMost = 1e8; // more means damage
    const bool isTold = TIFFGetField(tiff, TIFFTAG_XRESOLUTION, &x) == 1 &&
                        TIFFGetField(tiff, TIFFTAG_YRESOLUTION, &y) == 1;
    if (!isTold || perMetre == 0.0 || !(x > 0 && y > 0 && x < kMost && y < kMost))
        return;
    picture.setDotsPerMeterX(qRound(double(x) * perMetre));
    picture.setDotsPerMeterY(qRound(double(y) * perMetre));
}

/// The profile of inks has done its work.
void applyColourProfile(TIFF *tiff, const Layout &layout, DecodedPicture &picture)
{
    const QByteArray profile = profileIn(tiff);
    const bool hasInks = layout.isForeign && !layout.isLab();
    if (hasInks && !profile.isEmpty() && !colour_profile::fitsInkPixels(profile))
        picture.warnings += true_colours::damagedProfileWarning();
    if (layout.isForeign)
        picture.image.setColorSpace(QColorSpace::SRgb);
    else if (!profile.isEmpty())
        picture.image.setColorSpace(QColorSpace::fromIccProfile(profile));
}

DecodedPicture read(TIFF *tiff, const Layout &layout, const ReadOptions &options)
{
    if (qint64(layout.size.width()) * layout.size.height() > options.pixelLimit)
        return picture::failure(DecodeError::TooLarge, layout.size);
    std::uint16_t orientation = ORIENTATION_TOPLEFT;
    TIFFGetFieldDefaulted(tiff, TIFFTAG_ORIENTATION, &orientation);
    const QImage::Format format = formatOf(layout, options.depth);
    UprightRows rows(layout.size, format, exif::transformation(orientation));
    if (rows.isNull())
        return picture::failure(DecodeError::NoMemory, layout.size);
    if (!readRows(tiff, layout, rows, format))
        return picture::failure(DecodeError::Damaged);
    applyResolution(tiff, rows.image());
    DecodedPicture picture{std::move(rows.image()), DecodeError::None, {}};
    applyColourProfile(tiff, layout, picture);
    return picture;
}

/// Floats of 16 or 32 bits, red, green and blue or grey.
DecodedPicture readLight(QFile &file, TIFF *tiff, const Layout &layout, const ReadOptions &options)
{
    const bool isKnown =
        layout.photometric == PHOTOMETRIC_RGB || layout.photometric == PHOTOMETRIC_MINISBLACK;
    if (options.light == ReadOptions::Light::Refused || !isKnown ||
        (layout.bits != 16 && layout.bits != 32) || layout.channels < layout.colours() ||
        layout.channels > kMostChannels)
        return picture::unsupported(QStringLiteral("TIFF (floating-point numbers)"));
    if (layout.size.isEmpty() || !picture::isComplete(file, "tiff"))
        return picture::failure(DecodeError::Damaged);
    if (qint64(layout.size.width()) * layout.size.height() > options.pixelLimit)
        return picture::failure(DecodeError::TooLarge, layout.size);
    const tiff_light::Layout how = {layout.size,      layout.bits,     layout.channels,
                                    layout.colours(), layout.hasAlpha, layout.isMultiplied,
                                    profileIn(tiff)};
    DecodedPicture picture = tiff_light::read(tiff, how, options);
    if (!picture.image.isNull())
        applyResolution(tiff, picture.image);
    return picture;
}

bool isTiff(QFile &file)
{
    const QByteArray start = file.peek(4);
    for (const char kind : {'\x2A', '\x2B'}) { // with numbers of 32 or 64 bits
        if (start == QByteArray("II") + kind + '\0' || start == QByteArray("MM") + '\0' + kind)
            return true;
    }
    return false;
}

} // namespace

std::optional<DecodedPicture> tiff_decoder::decode(QFile &file, const ReadOptions &options)
{
    if (!isTiff(file))
        return std::nullopt;
    const tiff_file::File tiff =
        tiff_file::open(file, "rm"); // not mapped: the file may shrink meanwhile
    if (!tiff) {
        file.seek(0);
        return std::nullopt; // Qt says what is wrong
    }
    Layout layout = layoutOf(tiff.get());
    layout.isForeign =
        options.colours == ReadOptions::Colours::True && isForeign(tiff.get(), layout);
    if (layout.isFloating)
        return readLight(file, tiff.get(), layout, options);
    if (!isOurs(layout)) {
        file.seek(0);
        return std::nullopt;
    }
    return picture::isComplete(file, "tiff") ? read(tiff.get(), layout, options)
                                             : picture::failure(DecodeError::Damaged);
}
