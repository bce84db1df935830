#include "automatic_look.h"

#include "adjust.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace exposure {
namespace {

constexpr int kSide = 512; // pixels along the longer side that are looked at

constexpr double kTail = 0.001;
constexpr double kTenth = 0.1;
constexpr double kMiddle = 0.46;
constexpr double kMostBlack = 0.15;
constexpr double kLeastWhite = 0.75;
constexpr double kMostStops = 1.5;
constexpr double kDark = 0.16;
constexpr double kLight = 0.84;
constexpr double kMostTone = 0.6;

/// How many pixels have which luma, 0 to 255.
class LumaCounts
{
public:
    explicit LumaCounts(const QImage &picture)
    {
        for (int y = 0; y < picture.height(); ++y) {
            const auto *row = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
            for (int x = 0; x < picture.width(); ++x)
                ++counts[size_t(lumaOf(row[x]))];
        }
        total = double(picture.width()) * picture.height();
    }

    /// The value, 0 to 1, below which that share of the pixels lies.
    double quantile(double share) const
    {
        double below = 0;
        size_t level = 0;
        for (; level < counts.size() - 1; ++level) {
            below += counts[level];
            if (below >= share * total)
                break;
        }
        return double(level) / double(counts.size() - 1);
    }

private:
    static int lumaOf(QRgb pixel)
    {
        return (54 * qRed(pixel) + 183 * qGreen(pixel) + 19 * qBlue(pixel)) >> 8;
    }

    std::array<quint32, 256> counts{};
    double total = 0;
};

/// Every few pixels, as 8 bits.
QImage sampled(const QImage &picture)
{
    const QSize size = picture.size().scaled(kSide, kSide, Qt::KeepAspectRatio);
    const bool isLarge = picture.width() > kSide || picture.height() > kSide;
    const QImage small = isLarge ? picture.scaled(size.expandedTo({1, 1})) : picture;
    return small.convertToFormat(QImage::Format_RGB32);
}

double linear(double encoded)
{
    return encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
}

/// To hundredths, as controls show them.
double rounded(double value)
{
    return std::round(value * 100) / 100;
}

/// The range that the pixels use, but for their extremes.
struct Levels
{
    explicit Levels(const LumaCounts &lumas)
        : black(lumas.quantile(kTail))
        , white(lumas.quantile(1 - kTail))
    {
    }

    bool isFlat() const { return white <= black; }
    double stretched(double value) const
    {
        return std::clamp((value - black) / (white - black), 0.01, 1.0);
    }

    double black;
    double white;
};

Look tonesFor(const LumaCounts &lumas)
{
    const Levels levels(lumas);
    const double dark = (kDark - levels.stretched(lumas.quantile(kTenth))) / kDark;
    const double light = (levels.stretched(lumas.quantile(1 - kTenth)) - kLight) / (1 - kLight);
    Look look;
    look.shadows = rounded(kMostTone * std::clamp(dark, 0.0, 1.0));
    look.highlights = rounded(-kMostTone * std::clamp(light, 0.0, 1.0));
    return look;
}

/// lumas: after the tones, as the levels are changed behind them.
void setLevels(Look &look, const LumaCounts &lumas)
{
    Levels levels(lumas);
    levels.black = look.blackPoint = rounded(std::min(levels.black, kMostBlack));
    levels.white = look.whitePoint = rounded(std::max(levels.white, kLeastWhite));
    const double median = levels.stretched(lumas.quantile(0.5));
    const double stops = std::log2(linear((median + kMiddle) / 2) / linear(median));
    look.exposure = rounded(std::clamp(stops, -kMostStops, kMostStops));
}

} // namespace

Look automaticLook(const QImage &picture)
{
    if (picture.isNull())
        return {};
    QImage small = sampled(picture);
    const LumaCounts before(small);
    if (Levels(before).isFlat())
        return {};
    Look look = tonesFor(before);
    adjust(small, look);
    setLevels(look, LumaCounts(small));
    return look;
}

} // namespace exposure
