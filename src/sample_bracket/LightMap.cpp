#include "LightMap.h"

#include "parallel_rows.h"

namespace sample {

namespace {

/// 1 on one plane, falling to 0 as the normals part or the point leaves the texel's plane.
float kinship(const LightMap::Texel &texel, Vector3 position, Vector3 normal)
{
    if (texel.distance <= 0.0F)
        return 0.0F;
    const float cosine = std::max(0.0F, dot(texel.normal, normal));
    const float offPlane =
        std::fabs(dot(texel.normal, position - texel.position)) / (0.008F * texel.distance);
    const float cosine4 = cosine * cosine * cosine * cosine;
    return cosine4 * cosine4 / (1.0F + offPlane * offPlane * offPlane * offPlane);
}

} // namespace

LightMap::LightMap(int width, int height)
    : width_(width)
    , height_(height)
    , texels_(static_cast<size_t>(width) * static_cast<size_t>(height))
{
}

LightMap::Texel &LightMap::at(int x, int y)
{
    return texels_[static_cast<size_t>(y) * static_cast<size_t>(width_) + static_cast<size_t>(x)];
}

const LightMap::Texel &LightMap::at(int x, int y) const
{
    return texels_[static_cast<size_t>(y) * static_cast<size_t>(width_) + static_cast<size_t>(x)];
}

void LightMap::smooth()
{
    // Each round reaches further with the same number of texels.
    std::vector<Vector3> result(texels_.size());
    for (const int step : {1, 2, 4}) {
        parallel::each(height_, [&](int y) {
            for (int x = 0; x < width_; ++x)
                result[static_cast<size_t>(y) * static_cast<size_t>(width_) +
                       static_cast<size_t>(x)] = smoothed(x, y, step);
        });
        for (size_t i = 0; i < texels_.size(); ++i)
            texels_[i].irradiance = result[i];
    }
}

Vector3 LightMap::smoothed(int x, int y, int step) const
{
    static constexpr float kBell[] = {0.375F, 0.25F, 0.0625F};
    const Texel &center = at(x, y);
    if (center.distance <= 0.0F)
        return {};
    Vector3 sum;
    float total = 0.0F;
    for (int j = -2; j <= 2; ++j) {
        const int row = y + j * step;
        if (row < 0 || row >= height_)
            continue;
        for (int i = -2; i <= 2; ++i) {
            const int column = x + i * step;
            if (column < 0 || column >= width_)
                continue;
            const Texel &texel = at(column, row);
            const float weight = kBell[std::abs(i)] * kBell[std::abs(j)] *
                                 kinship(texel, center.position, center.normal);
            sum += texel.irradiance * weight;
            total += weight;
        }
    }
    return sum * (1.0F / total);
}

bool LightMap::lookUp(float x, float y, Vector3 position, Vector3 normal, Vector3 &irradiance) const
{
    const auto left = static_cast<int>(std::floor(x - 0.5F));
    const auto top = static_cast<int>(std::floor(y - 0.5F));
    Vector3 sum;
    float total = 0.0F;
    for (int row = std::max(top, 0); row <= std::min(top + 1, height_ - 1); ++row) {
        for (int column = std::max(left, 0); column <= std::min(left + 1, width_ - 1); ++column) {
            const float nearX = 1.0F - std::fabs(x - 0.5F - static_cast<float>(column));
            const float nearY = 1.0F - std::fabs(y - 0.5F - static_cast<float>(row));
            const Texel &texel = at(column, row);
            const float weight = (nearX * nearY + 0.02F) * kinship(texel, position, normal);
            sum += texel.irradiance * weight;
            total += weight;
        }
    }
    if (total < 1e-3F)
        return false;
    irradiance = sum * (1.0F / total);
    return true;
}

} // namespace sample
