#include "ScreenConversion.h"

#include <ColourTransform.h>

#include <algorithm>

ScreenConversion::ScreenConversion(const QByteArray &from, const QByteArray &to)
    : transform(std::make_unique<ColourTransform>(
          ColourTransform::Colours{from, ColourTransform::Pixels::Words8},
          ColourTransform::Colours{to, ColourTransform::Pixels::Words8}))
{
}

ScreenConversion::~ScreenConversion() = default;

bool ScreenConversion::isIdentity() const
{
    return transform->isNull() || transform->isIdentity();
}

void ScreenConversion::apply(QImage &picture) const
{
    if (isIdentity())
        return;
    for (int y = 0; y < picture.height(); ++y)
        applyToRow(reinterpret_cast<QRgb *>(picture.scanLine(y)), picture.width());
}

void ScreenConversion::applyToRow(QRgb *row, int width) const
{
    const bool isOpaque =
        std::all_of(row, row + width, [](QRgb pixel) { return qAlpha(pixel) == 255; });
    if (!isOpaque)
        std::transform(row, row + width, row, [](QRgb pixel) { return qUnpremultiply(pixel); });
    transform->convertRow(row, row, width);
    if (!isOpaque)
        std::transform(row, row + width, row, [](QRgb pixel) { return qPremultiply(pixel); });
}
