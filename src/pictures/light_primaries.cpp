#include "light_primaries.h"

#include "colour_profile.h"
#include "little_cms.h"
#include "parallel_rows.h"

#include <QMatrix4x4>

#include <algorithm>

namespace {

/// From red, green and blue to XYZ; nothing usable (a null matrix) where the profile does not tell.
QMatrix4x4 toXyz(const QByteArray &bytes)
{
    constexpr cmsTagSignature kColorants[] = {cmsSigRedColorantTag, cmsSigGreenColorantTag,
                                              cmsSigBlueColorantTag};
    const little_cms::Context context = little_cms::newContext();
    const little_cms::Profile profile = little_cms::open(context, bytes);
    QMatrix4x4 matrix;
    for (int c = 0; c < 3; ++c) {
        const auto *colour = static_cast<const cmsCIEXYZ *>(
            profile ? cmsReadTag(profile.get(), kColorants[c]) : nullptr);
        if (!colour)
            return {};
        matrix.setColumn(c, QVector4D(float(colour->X), float(colour->Y), float(colour->Z), 0.0F));
    }
    return matrix;
}

QByteArray profileOf(const QColorSpace &space)
{
    const QByteArray profile = space.iccProfile();
    return profile.isEmpty() ? colour_profile::of(colour_profile::Space::Srgb) : profile;
}

bool isUnit(const light_primaries::Matrix &matrix)
{
    constexpr float kAsGoodAsEqual = 1e-4F;
    for (size_t i = 0; i < matrix.size(); ++i) {
        if (std::abs(matrix[i] - (i % 4 == 0 ? 1.0F : 0.0F)) > kAsGoodAsEqual)
            return false;
    }
    return true;
}

void convertRow(float *pixels, int count, const light_primaries::Matrix &m)
{
    for (int x = 0; x < count; ++x, pixels += 4) {
        const float red = pixels[0];
        const float green = pixels[1];
        const float blue = pixels[2];
        for (size_t c = 0; c < 3; ++c)
            pixels[c] = m[3 * c] * red + m[3 * c + 1] * green + m[3 * c + 2] * blue;
    }
}

} // namespace

light_primaries::Matrix light_primaries::between(const QByteArray &fromProfile,
                                                 const QByteArray &toProfile)
{
    const QMatrix4x4 from = toXyz(fromProfile);
    const QMatrix4x4 to = toXyz(toProfile);
    bool isInvertible = false;
    QMatrix4x4 whole = to.inverted(&isInvertible) * from;
    if (!isInvertible || from.isIdentity() || to.isIdentity())
        whole.setToIdentity();
    Matrix matrix;
    for (int i = 0; i < 9; ++i)
        matrix[size_t(i)] = whole(i / 3, i % 3);
    return matrix;
}

bool light_primaries::bring(QImage &light, const QColorSpace &space)
{
    const Matrix matrix = between(profileOf(light.colorSpace()), profileOf(space));
    const QColorSpace own = space.isValid() ? space : QColorSpace(QColorSpace::SRgb);
    light.setColorSpace(own.withTransferFunction(QColorSpace::TransferFunction::Linear));
    if (isUnit(matrix))
        return true;
    uchar *pixels = light.bits();
    if (!pixels)
        return false;
    const qsizetype stride = light.bytesPerLine();
    parallel::rows(light.size(), [&](int begin, int end) {
        for (int y = begin; y < end; ++y)
            convertRow(reinterpret_cast<float *>(pixels + y * stride), light.width(), matrix);
    });
    return true;
}
