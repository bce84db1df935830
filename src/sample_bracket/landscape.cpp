#include "landscape.h"

#include "noise.h"

namespace sample {

namespace {

// Directions are painted over azimuth (radians, 0 straight out of the window) and rise (the tangent
// of the height above the horizon).

Vector3 skyColor(float rise)
{
    return mix({4.6F, 6.4F, 8.8F}, {1.1F, 2.6F, 6.6F}, smoothStep(-0.02F, 0.32F, rise));
}

Vector3 withClouds(Vector3 sky, float azimuth, float rise)
{
    const float x = azimuth * 7.0F;
    const float y = rise * 17.0F;
    const float shape = fractalNoise(x + 3.1F, y + 8.0F, 7);
    const float cover = smoothStep(0.53F, 0.63F, shape + 0.05F * smoothStep(0.05F, 0.2F, rise));
    // Thicker towards the sun means in shadow.
    const float towardsSun = fractalNoise(x + 3.35F, y + 8.45F, 6);
    const float shade = smoothStep(-0.10F, 0.13F, towardsSun - shape + 0.45F * (shape - 0.55F));
    const Vector3 cloud = mix({17.0F, 16.6F, 16.0F}, {5.4F, 5.9F, 7.0F}, shade);
    return mix(sky, cloud, cover);
}

Vector3 mountains(float azimuth, float rise, float ridge)
{
    // Folds run down from the ridge; their sunny sides are those where the field grows to the
    // right.
    const float x = azimuth * 34.0F - rise * 26.0F;
    const float y = rise * 55.0F;
    const float fold = fractalNoise(x, y, 6);
    const float slope = fold - fractalNoise(x + 0.22F, y + 0.05F, 6);
    const float light = smoothStep(-0.07F, 0.07F, slope);
    const float snowLine = 0.030F + 0.045F * fold;
    const float snow = smoothStep(-0.004F, 0.006F, rise - snowLine);
    const Vector3 stone = mix({0.7F, 1.0F, 1.7F}, {2.9F, 2.8F, 2.7F}, light);
    const Vector3 white = mix({3.6F, 4.9F, 7.4F}, {13.0F, 12.8F, 12.2F}, light);
    const Vector3 haze{4.2F, 5.4F, 7.2F};
    return mix(mix(stone, white, snow), haze, 0.40F * (1.0F - rise / ridge) + 0.12F);
}

Vector3 woods(float azimuth, float rise)
{
    const float crowns = fractalNoise(azimuth * 150.0F, rise * 330.0F, 4);
    const Vector3 leaves =
        mix({0.18F, 0.42F, 0.16F}, {1.7F, 2.3F, 0.6F}, smoothStep(0.3F, 0.75F, crowns));
    return mix(leaves, {3.0F, 3.9F, 4.6F}, 0.22F);
}

Vector3 lake(float azimuth, float rise)
{
    const float waves = fractalNoise(azimuth * 40.0F, rise * 1500.0F, 4);
    const Vector3 water =
        mix({1.3F, 2.6F, 3.9F}, {4.8F, 6.2F, 7.6F}, smoothStep(0.3F, 0.7F, waves));
    const float glitter = smoothStep(0.70F, 0.76F, valueNoise(azimuth * 260.0F, rise * 2100.0F));
    const float track = smoothStep(0.13F, 0.0F, std::fabs(azimuth - 0.17F));
    return water + Vector3{30.0F, 28.0F, 24.0F} * (glitter * track);
}

Vector3 meadow(float azimuth, float rise)
{
    // Ground plane seen from four metres above.
    const float distance = 4.0F / std::max(-rise, 0.004F);
    const float x = azimuth * distance;
    const float grass = fractalNoise(x * 1.5F, distance * 0.7F, 5);
    Vector3 color = mix({0.9F, 2.1F, 0.35F}, {3.4F, 4.4F, 0.9F}, grass);
    const float mown = smoothStep(-0.25F, 0.25F, std::sin(x * 0.55F + 0.02F * distance));
    color = color * mix(0.78F, 1.12F, mown);
    const float flowers = smoothStep(0.80F, 0.86F, valueNoise(x * 4.0F, distance * 1.7F));
    color = mix(color, {8.0F, 5.6F, 1.0F}, 0.8F * flowers);
    const float path = std::fabs(x - 5.0F - 4.0F * std::sin(distance * 0.045F));
    return mix({7.2F, 6.0F, 4.4F}, color, smoothStep(0.9F, 1.4F, path));
}

struct Tree
{
    float azimuth;
    float foot; ///< rise of the ground where it stands
    float size;
};

constexpr Tree kTrees[] = {{-0.33F, -0.040F, 0.052F}, {-0.255F, -0.033F, 0.034F},
                           {-0.20F, -0.030F, 0.024F}, {0.29F, -0.045F, 0.060F},
                           {0.225F, -0.032F, 0.030F}, {0.02F, -0.024F, 0.012F},
                           {0.05F, -0.024F, 0.014F},  {-0.46F, -0.05F, 0.08F}};

Vector3 withTrees(Vector3 color, float azimuth, float rise)
{
    for (const Tree &tree : kTrees) {
        const float x = (azimuth - tree.azimuth) / tree.size;
        const float y = (rise - tree.foot) / tree.size;
        const float shadow = smoothStep(1.2F, 0.2F, std::hypot((x + 0.5F) * 0.8F, y * 7.0F + 0.4F));
        color = color * mix(1.0F, 0.35F, shadow);
        if (std::fabs(x) < 0.07F && y > 0.0F && y < 0.7F)
            color = {0.55F, 0.38F, 0.25F};
        const float ragged = fractalNoise(x * 3.2F + tree.azimuth * 90.0F, y * 3.2F, 5);
        const float crown = std::hypot(x * 1.25F, (y - 1.1F) * 0.95F) + 0.9F * (ragged - 0.5F);
        const float light = smoothStep(-0.6F, 0.9F, 0.7F * x + (y - 1.1F) + 2.2F * (ragged - 0.5F));
        const Vector3 leaves = mix({0.16F, 0.36F, 0.10F}, {2.5F, 3.1F, 0.6F}, light);
        color = mix(leaves, color, smoothStep(0.62F, 0.68F, crown));
    }
    return color;
}

/// A white house with a red roof at the shore.
Vector3 withHouse(Vector3 color, float azimuth, float rise)
{
    const float x = (azimuth + 0.075F) / 0.016F;
    const float y = (rise + 0.026F) / 0.016F;
    if (y < 0.0F || y > 1.75F || std::fabs(x) > 1.35F)
        return color;
    if (y > 0.95F)
        return std::fabs(x) < 1.35F - 1.35F * (y - 0.95F) / 0.8F ? Vector3{4.6F, 1.3F, 0.7F}
                                                                 : color;
    if (std::fabs(x) > 1.15F)
        return color;
    const float column = std::fabs(std::fabs(x) - 0.55F);
    const bool isWindow = column < 0.16F && y > 0.35F && y < 0.7F;
    return isWindow ? Vector3{0.5F, 0.6F, 0.8F} : Vector3{11.0F, 10.4F, 9.2F};
}

} // namespace

Vector3 landscapeRadiance(Vector3 direction)
{
    const float azimuth = std::atan2(direction.x, -direction.z);
    const float rise = direction.y / std::hypot(direction.x, direction.z);
    const float ridge = 0.012F + 0.130F * fractalNoise(azimuth * 9.0F + 2.0F, 1.0F, 6);
    const float forest = 0.006F + 0.026F * fractalNoise(azimuth * 9.0F + 5.0F, 9.0F, 3) +
                         0.004F * fractalNoise(azimuth * 190.0F, 3.0F, 2);
    const float shore = -0.022F + 0.008F * (fractalNoise(azimuth * 8.0F, 21.0F, 3) - 0.5F);
    Vector3 color;
    if (rise > ridge)
        color = withClouds(skyColor(rise), azimuth, rise);
    else if (rise > forest)
        color = mountains(azimuth, rise, ridge);
    else if (rise > -0.004F)
        color = woods(azimuth, rise);
    else if (rise > shore)
        color = lake(azimuth, rise);
    else
        color = meadow(azimuth, rise);
    if (rise > 0.2F || rise < -0.2F)
        return color;
    return withTrees(withHouse(color, azimuth, rise), azimuth, rise);
}

Vector3 broadRadiance(Vector3 direction)
{
    const Vector3 ground{1.9F, 2.6F, 0.9F};
    const Vector3 sky = mix({8.0F, 8.8F, 9.8F}, {4.2F, 5.4F, 8.0F}, clamp01(direction.y * 1.5F));
    return mix(ground, sky, smoothStep(-0.06F, 0.04F, direction.y));
}

Vector3 sunDirection()
{
    static const Vector3 direction = normalized({0.48F, 0.50F, -0.85F});
    return direction;
}

Vector3 sunIrradiance()
{
    return {34.0F, 30.0F, 24.0F};
}

} // namespace sample
