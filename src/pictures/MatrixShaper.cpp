#include "MatrixShaper.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kLevels = 65536;
constexpr int kCells = 16384; ///< of the curve back

constexpr cmsTagSignature kCurveTags[] = {cmsSigRedTRCTag, cmsSigGreenTRCTag, cmsSigBlueTRCTag};
constexpr cmsTagSignature kColourTags[] = {cmsSigRedColorantTag, cmsSigGreenColorantTag,
                                           cmsSigBlueColorantTag};

using Matrix = std::array<double, 9>;

/// From linear red, green and blue to XYZ. Where the profile has tables, too, these count.
std::optional<Matrix> matrixOf(cmsHPROFILE profile)
{
    if (!cmsIsMatrixShaper(profile) || cmsIsTag(profile, cmsSigAToB0Tag) ||
        cmsIsTag(profile, cmsSigBToA0Tag) || cmsIsTag(profile, cmsSigAToB1Tag) ||
        cmsIsTag(profile, cmsSigBToA1Tag))
        return {};
    Matrix matrix;
    for (size_t i = 0; i < 3; ++i) {
        const auto *colour = static_cast<const cmsCIEXYZ *>(cmsReadTag(profile, kColourTags[i]));
        if (!colour)
            return {};
        matrix[i] = colour->X;
        matrix[3 + i] = colour->Y;
        matrix[6 + i] = colour->Z;
    }
    return matrix;
}

std::optional<Matrix> inverse(const Matrix &m)
{
    const auto minor = [&m](size_t a, size_t b, size_t c, size_t d) {
        return m[a] * m[d] - m[b] * m[c];
    };
    const Matrix adjugate = {minor(4, 5, 7, 8), minor(2, 1, 8, 7), minor(1, 2, 4, 5),
                             minor(5, 3, 8, 6), minor(0, 2, 6, 8), minor(2, 0, 5, 3),
                             minor(3, 4, 6, 7), minor(1, 0, 7, 6), minor(0, 1, 3, 4)};
    const double determinant = m[0] * adjugate[0] + m[1] * adjugate[3] + m[2] * adjugate[6];
    if (std::abs(determinant) < 1e-6)
        return {};
    Matrix inverted;
    std::transform(adjugate.begin(), adjugate.end(), inverted.begin(),
                   [=](double number) { return number / determinant; });
    return inverted;
}

std::array<float, 9> product(const Matrix &left, const Matrix &right)
{
    std::array<float, 9> result;
    for (size_t y = 0; y < 3; ++y) {
        for (size_t x = 0; x < 3; ++x)
            result[3 * y + x] =
                static_cast<float>(left[3 * y] * right[x] + left[3 * y + 1] * right[3 + x] +
                                   left[3 * y + 2] * right[6 + x]);
    }
    return result;
}

const cmsToneCurve *curveOf(cmsHPROFILE profile, size_t channel)
{
    return static_cast<const cmsToneCurve *>(cmsReadTag(profile, kCurveTags[channel]));
}

std::vector<float> linearLevels(const cmsToneCurve *curve)
{
    std::vector<float> levels(kLevels);
    for (int i = 0; i < kLevels; ++i)
        levels[size_t(i)] = cmsEvalToneCurveFloat(curve, float(i) / (kLevels - 1));
    return levels;
}

/// One more cell than is reached, so that reading two neighbours needs no question.
std::vector<float> encodedLevels(const cmsToneCurve *curve)
{
    const little_cms::Curve back(cmsReverseToneCurve(curve), &cmsFreeToneCurve);
    std::vector<float> levels;
    for (int i = 0; back && i < kCells + 2; ++i) {
        const double root = std::min(1.0, double(i) / kCells);
        const float level = cmsEvalToneCurveFloat(back.get(), static_cast<float>(root * root));
        levels.push_back(std::clamp(level, 0.0F, 1.0F) * (kLevels - 1));
    }
    return levels;
}

quint16 level(float light, const std::vector<float> &encoded)
{
    const float place = std::sqrt(std::clamp(light, 0.0F, 1.0F)) * kCells;
    const auto cell = static_cast<size_t>(place);
    const float part = place - static_cast<float>(cell);
    return static_cast<quint16>(encoded[cell] + part * (encoded[cell + 1] - encoded[cell]) + 0.5F);
}

} // namespace

std::optional<MatrixShaper> MatrixShaper::between(const little_cms::Profile &from,
                                                  const little_cms::Profile &to)
{
    const std::optional<Matrix> there = matrixOf(from.get());
    const std::optional<Matrix> target = matrixOf(to.get());
    const std::optional<Matrix> back = target ? inverse(*target) : target;
    if (!there || !back)
        return {};
    MatrixShaper shaper;
    shaper.matrix = product(*back, *there);
    for (size_t i = 0; i < 3; ++i) {
        const cmsToneCurve *first = curveOf(from.get(), i);
        const cmsToneCurve *last = curveOf(to.get(), i);
        if (!first || !last)
            return {};
        shaper.linear[i] = linearLevels(first);
        shaper.encoded[i] = encodedLevels(last);
        if (shaper.encoded[i].empty())
            return {};
    }
    return shaper;
}

void MatrixShaper::convertRow(const QRgba64 *from, QRgba64 *to, int count) const
{
    const std::array<float, 9> &m = matrix;
    for (int i = 0; i < count; ++i) {
        const float red = linear[0][from[i].red()];
        const float green = linear[1][from[i].green()];
        const float blue = linear[2][from[i].blue()];
        to[i] = QRgba64::fromRgba64(level(m[0] * red + m[1] * green + m[2] * blue, encoded[0]),
                                    level(m[3] * red + m[4] * green + m[5] * blue, encoded[1]),
                                    level(m[6] * red + m[7] * green + m[8] * blue, encoded[2]),
                                    from[i].alpha());
    }
}
