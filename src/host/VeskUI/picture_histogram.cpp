#include "picture_histogram.h"

#include <algorithm>

namespace {

constexpr int kStripRows = 64; // composed at a time, so that memory does not grow with the picture

// Rec. 709 luma in 1/65536; the weights sum to 65536, so grey keeps its level.
constexpr quint32 kRedWeight = 13933;
constexpr quint32 kGreenWeight = 46871;
constexpr quint32 kBlueWeight = 4732;

void countRow(const QRgb *row, int width, VeskCanvas::Histogram &counts)
{
    for (int x = 0; x < width; ++x) {
        if (qAlpha(row[x]) == 0)
            continue;
        const QRgb pixel = qUnpremultiply(row[x]);
        const quint32 red = qRed(pixel);
        const quint32 green = qGreen(pixel);
        const quint32 blue = qBlue(pixel);
        const quint32 luma = kRedWeight * red + kGreenWeight * green + kBlueWeight * blue;
        ++counts.red[red];
        ++counts.green[green];
        ++counts.blue[blue];
        ++counts.luminosity[(luma + 32768) >> 16];
    }
}

} // namespace

VeskScreenColours::Conversion histogram::toCommon(const std::vector<SourceLayer> &layers)
{
    return VeskScreenColours::getInstance().toCommon(composition::colorSpace(layers));
}

VeskCanvas::Histogram histogram::countLevels(const std::vector<SourceLayer> &layers,
                                             const QSize &document,
                                             const VeskScreenColours::Conversion &toCommon)
{
    VeskCanvas::Histogram counts;
    if (document.isEmpty())
        return counts;
    for (int y = 0; y < document.height(); y += kStripRows) {
        const int rows = std::min(kStripRows, document.height() - y);
        QImage strip = composition::composedRegion(layers, QRect(0, y, document.width(), rows));
        if (toCommon)
            toCommon(strip);
        for (int row = 0; row < strip.height(); ++row)
            countRow(reinterpret_cast<const QRgb *>(strip.constScanLine(row)), strip.width(),
                     counts);
    }
    return counts;
}
