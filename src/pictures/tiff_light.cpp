#include "tiff_light.h"

#include "LightRows.h"
#include "TiffRows.h"
#include "colour_profile.h"
#include "exif_orientation.h"

#include <qfloat16.h>

#include <cstring>
#include <vector>

namespace {

/// As TIFF knows them: without a profile for red, green and blue the numbers are light.
void setColours(const QByteArray &profile, LightRows::Layout &layout)
{
    const QColorSpace space = colour_profile::fitsRgbPixels(profile)
                                  ? QColorSpace::fromIccProfile(profile)
                                  : QColorSpace();
    layout.space = space;
    layout.areLevels =
        space.isValid() && space.transferFunction() != QColorSpace::TransferFunction::Linear;
}

void convertRow(const float *from, float *to, const tiff_light::Layout &layout)
{
    const float *const end = from + qint64(layout.size.width()) * layout.channels;
    for (; from < end; from += layout.channels, to += 4) {
        for (int c = 0; c < 3; ++c)
            to[c] = from[layout.colours == 1 ? 0 : c];
        to[3] = layout.hasAlpha ? from[layout.colours] : 1.0F;
    }
}

LightRows::Layout layoutOf(TIFF *tiff, const tiff_light::Layout &stored)
{
    std::uint16_t orientation = ORIENTATION_TOPLEFT;
    TIFFGetFieldDefaulted(tiff, TIFFTAG_ORIENTATION, &orientation);
    LightRows::Layout layout;
    layout.size = stored.size;
    layout.transformation = exif::transformation(orientation);
    layout.hasAlpha = stored.hasAlpha;
    layout.isMultiplied = stored.isMultiplied;
    setColours(stored.profile, layout);
    return layout;
}

} // namespace

DecodedPicture tiff_light::read(TIFF *tiff, const Layout &layout, const ReadOptions &options)
{
    LightRows rows(layoutOf(tiff, layout), options);
    if (rows.isNull())
        return picture::failure(DecodeError::NoMemory, layout.size);
    TiffRows source(tiff);
    const qsizetype numbers = qsizetype(layout.size.width()) * layout.channels;
    std::vector<float> wide(static_cast<size_t>(numbers));
    for (int y = 0; y < layout.size.height(); ++y) {
        const uchar *row = source.row(static_cast<std::uint32_t>(y));
        if (!row)
            return picture::failure(DecodeError::Damaged);
        if (layout.bits == 16)
            qFloatFromFloat16(wide.data(), reinterpret_cast<const qfloat16 *>(row), numbers);
        else
            std::memcpy(wide.data(), row, wide.size() * sizeof(float));
        convertRow(wide.data(), rows.row(y), layout);
        rows.rowWritten(y);
    }
    DecodedPicture decoded;
    decoded.image = rows.taken();
    return decoded.image.isNull() ? picture::failure(DecodeError::NoMemory, layout.size) : decoded;
}
