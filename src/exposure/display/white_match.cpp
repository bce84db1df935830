#include "white_match.h"

#include "Response.h"

#include <QColorSpace>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr int kDarkest = 64;
constexpr int kBrightest = 224;
constexpr double kPlaces = 400000;

int stepFor(QSize size)
{
    const double pixels = double(size.width()) * size.height();
    return std::max(1, int(std::sqrt(pixels / kPlaces)));
}

/// Takes the ratios of the pixels whose darkest and brightest channel lie within the bounds.
class Ratios
{
public:
    Ratios(const QImage &basePicture, const QImage &lightPicture, const QImage &boundsPicture)
        : base(basePicture)
        , light(lightPicture)
        , bounds(boundsPicture)
        , response(radiance::Response::ofProfile(base.colorSpace().iccProfile(),
                                                 radiance::Response::kByteLevels))
    {
    }

    /// 0 when there is none.
    double median(int darkest, int brightest) const
    {
        std::vector<float> ratios;
        const int step = stepFor(base.size());
        for (int y = step / 2; y < base.height(); y += step)
            for (int x = step / 2; x < base.width(); x += step)
                add(x, y, darkest, brightest, ratios);
        if (ratios.empty())
            return 0.0;
        const auto middle = ratios.begin() + qsizetype(ratios.size() / 2);
        std::nth_element(ratios.begin(), middle, ratios.end());
        return double(*middle);
    }

private:
    void add(int x, int y, int darkest, int brightest, std::vector<float> &ratios) const
    {
        const QRgb word = reinterpret_cast<const QRgb *>(base.constScanLine(y))[x];
        const auto [low, high] = std::minmax({qRed(word), qGreen(word), qBlue(word)});
        const bool isBound = !bounds.isNull() && bounds.constScanLine(y)[x] != 0;
        if (isBound || low < darkest || high > brightest)
            return;
        const float *pixel = reinterpret_cast<const float *>(light.constScanLine(y)) + 4 * x;
        const float sum = pixel[0] + pixel[1] + pixel[2];
        const float shown = response.channel(0)[size_t(qRed(word))] +
                            response.channel(1)[size_t(qGreen(word))] +
                            response.channel(2)[size_t(qBlue(word))];
        if (sum > 0.0F && shown > 0.0F)
            ratios.push_back(shown / sum);
    }

    const QImage &base;
    const QImage &light;
    const QImage &bounds;
    const radiance::Response response;
};

} // namespace

double display::whiteMatch(const QImage &base, const QImage &light, const QImage &bounds)
{
    const Ratios ratios(base, light, bounds);
    const double ofWellExposed = ratios.median(kDarkest, kBrightest);
    if (ofWellExposed > 0.0)
        return ofWellExposed;
    const double ofAll = ratios.median(1, 255);
    return ofAll > 0.0 ? ofAll : 1.0;
}
