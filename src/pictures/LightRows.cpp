#include "LightRows.h"

#include "ScreenCurve.h"

#include <QRgba64>

#include <algorithm>

namespace {

constexpr size_t kNumbers = 4; // of a pixel

QImage::Format floatFormat(const LightRows::Layout &layout)
{
    if (!layout.hasAlpha)
        return QImage::Format_RGBX32FPx4;
    return layout.isMultiplied ? QImage::Format_RGBA32FPx4_Premultiplied
                               : QImage::Format_RGBA32FPx4;
}

QImage::Format formatFor(const LightRows::Layout &layout, const ReadOptions &options)
{
    if (options.light == ReadOptions::Light::Floats)
        return floatFormat(layout);
    if (options.depth == ReadOptions::Depth::AsStored)
        return layout.hasAlpha ? QImage::Format_RGBA64 : QImage::Format_RGBX64;
    return layout.hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32;
}

QColorSpace orSrgb(const QColorSpace &space)
{
    return space.isValid() ? space : QColorSpace(QColorSpace::SRgb);
}

float withinUnit(float number)
{
    return number > 0 ? std::min(number, 1.0F) : 0.0F;
}

void setWord(QRgb &word, const unsigned (&levels)[kNumbers])
{
    word = qRgba(int(levels[0]), int(levels[1]), int(levels[2]), int(levels[3]));
}

void setWord(QRgba64 &word, const unsigned (&levels)[kNumbers])
{
    word = QRgba64::fromRgba64(quint16(levels[0]), quint16(levels[1]), quint16(levels[2]),
                               quint16(levels[3]));
}

} // namespace

LightRows::LightRows(const Layout &wanted, const ReadOptions &options)
    : layout(wanted)
    , isLightWanted(options.light == ReadOptions::Light::Floats)
    , rows(wanted.size, formatFor(wanted, options), wanted.transformation)
{
    if (!isNull() && !isLightWanted)
        scratch.resize(kNumbers * size_t(wanted.size.width()));
}

float *LightRows::row(int y)
{
    return isLightWanted ? reinterpret_cast<float *>(rows.row(y)) : scratch.data();
}

void LightRows::rowWritten(int y)
{
    if (!isLightWanted && rows.image().depth() == 64)
        convertRow(reinterpret_cast<QRgba64 *>(rows.row(y)), 65535.0F);
    else if (!isLightWanted)
        convertRow(reinterpret_cast<QRgb *>(rows.row(y)), 255.0F);
    rows.rowWritten(y);
}

template <typename Word>
void LightRows::convertRow(Word *words, float white) const
{
    const ScreenCurve &curve = ScreenCurve::shared();
    const float *pixel = scratch.data();
    for (int x = 0; x < layout.size.width(); ++x, pixel += kNumbers) {
        const float alpha = layout.hasAlpha ? withinUnit(pixel[3]) : 1.0F;
        const float scale = layout.isMultiplied && alpha > 0 ? 1 / alpha : 1.0F;
        unsigned levels[kNumbers];
        for (size_t c = 0; c < 3; ++c) {
            const float number = pixel[c] * scale;
            const float level = layout.areLevels ? withinUnit(number) : curve.levelOf(number);
            levels[c] = unsigned(level * white + 0.5F);
        }
        levels[3] = unsigned(alpha * white + 0.5F);
        setWord(words[x], levels);
    }
}

QImage LightRows::taken()
{
    using Transfer = QColorSpace::TransferFunction;
    QImage picture = std::move(rows.image());
    const QColorSpace space = orSrgb(layout.space);
    const QColorSpace linear = space.withTransferFunction(Transfer::Linear);
    if (!isLightWanted) {
        picture.setColorSpace(layout.areLevels ? space
                                               : space.withTransferFunction(Transfer::SRgb));
        return picture;
    }
    picture.setColorSpace(layout.areLevels ? space : linear);
    if (layout.areLevels)
        picture.convertToColorSpace(linear);
    return picture;
}
