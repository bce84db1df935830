#include "Surface.h"

#include "noise.h"

namespace sample {

namespace {

struct Flat
{
    float u;
    float v;
};

/// Coordinates on the side that the normal belongs to; v is the upright one where there is one.
Flat flattened(Vector3 point, Vector3 normal)
{
    const Vector3 n{std::fabs(normal.x), std::fabs(normal.y), std::fabs(normal.z)};
    if (n.y >= n.x && n.y >= n.z)
        return {point.x, point.z};
    if (n.x >= n.z)
        return {point.z, point.y};
    return {point.x, point.y};
}

float fraction(float value)
{
    return value - std::floor(value);
}

/// 0 within half a line width of a multiple of period, else 1.
float besideLines(float value, float period, float width)
{
    const float distance = std::fabs(fraction(value / period + 0.5F) - 0.5F) * period;
    return smoothStep(0.35F * width, 0.65F * width, distance);
}

Vector3 plaster(const Surface &surface, Flat at)
{
    const float patches = fractalNoise(at.u * 1.3F, at.v * 1.3F, 4);
    const float grain = fractalNoise(at.u * 60.0F, at.v * 60.0F, 3);
    return surface.color * (0.84F + 0.16F * patches + 0.10F * (grain - 0.5F));
}

Vector3 bricks(const Surface &surface, Flat at)
{
    constexpr float kLength = 0.24F;
    constexpr float kHeight = 0.077F;
    const float row = std::floor(at.v / kHeight);
    const float u = at.u + (fraction(row * 0.5F) > 0.25F ? 0.5F * kLength : 0.0F);
    const float column = std::floor(u / kLength);
    const float wobble = 0.006F * (fractalNoise(at.u * 25.0F, at.v * 25.0F, 3) - 0.5F);
    const float stone =
        besideLines(u + wobble, kLength, 0.016F) * besideLines(at.v + wobble, kHeight, 0.016F);
    const float shade = valueNoise(column * 7.31F + 0.5F, row * 5.17F + 0.5F);
    const float rough = fractalNoise(at.u * 38.0F, at.v * 38.0F, 4);
    const Vector3 brick = mix(surface.color, surface.secondColor, shade) * (0.60F + 0.8F * rough);
    const Vector3 mortar = Vector3{0.50F, 0.47F, 0.43F} * (0.75F + 0.4F * rough);
    return mix(mortar, brick, stone);
}

float grain(float along, float across, float seed)
{
    const float bend = fractalNoise(along * 0.8F + seed, across * 5.0F, 3);
    const float rings = 0.5F + 0.5F * std::sin((across * 26.0F + bend * 5.0F + seed) * 6.0F);
    const float fibres = fractalNoise(along * 9.0F + seed, across * 240.0F, 3);
    return 0.50F * rings + 0.50F * fibres;
}

Vector3 planks(const Surface &surface, Flat at)
{
    constexpr float kWidth = 0.17F;
    constexpr float kLength = 1.7F;
    const float column = std::floor(at.u / kWidth);
    const float v = at.v + 1.13F * fraction(column * 0.618F) * kLength;
    const float row = std::floor(v / kLength);
    const float seed = 13.7F * fraction(column * 0.377F + row * 0.713F) + column;
    const float shade = 0.72F + 0.45F * fraction(seed * 0.618F);
    const float seam = besideLines(at.u, kWidth, 0.008F) * besideLines(v, kLength, 0.008F);
    const Vector3 wood = mix(surface.color, surface.secondColor, grain(v, at.u, seed)) * shade;
    return wood * mix(0.22F, 1.0F, seam);
}

Vector3 woodGrain(const Surface &surface, Flat at, Vector3 halfSize, int variant)
{
    const bool alongU = halfSize.x >= halfSize.z && halfSize.x >= halfSize.y;
    const float along = alongU ? at.u : at.v;
    const float across = alongU ? at.v : at.u;
    const float seed = 3.1F * static_cast<float>(variant % 17);
    return mix(surface.color, surface.secondColor, grain(along, across, seed));
}

Vector3 drawers(const Surface &surface, Flat at, Vector3 halfSize, int variant)
{
    const float height = 2.0F * halfSize.y / 3.0F;
    const float gap =
        besideLines(at.v - halfSize.y, height, 0.016F) * besideLines(at.u, 0.62F, 0.016F);
    return woodGrain(surface, {at.v, at.u}, {0.0F, 0.0F, 1.0F}, variant) * mix(0.18F, 1.0F, gap);
}

Vector3 bookSpine(const Surface &surface, Vector3 point, Vector3 normal, Vector3 halfSize,
                  int variant)
{
    if (std::fabs(normal.y) > 0.5F) {
        const float pages = 0.75F + 0.25F * valueNoise(point.z * 900.0F, 1.0F);
        return Vector3{0.80F, 0.74F, 0.60F} * pages;
    }
    const float height = point.y / halfSize.y;
    const float side = point.z / halfSize.z;
    const float place = 0.55F + 0.25F * fraction(static_cast<float>(variant) * 0.618F);
    const bool isBand = std::fabs(std::fabs(height) - place) < 0.035F;
    const float letters = valueNoise(point.y * 420.0F, static_cast<float>(variant) + side * 2.0F);
    const bool isTitle = std::fabs(height) < 0.38F && std::fabs(side) < 0.36F && letters > 0.45F;
    const float cloth = 0.85F + 0.3F * fractalNoise(point.y * 130.0F, point.z * 130.0F, 2);
    return (isBand || isTitle ? surface.secondColor : surface.color) * cloth;
}

Vector3 rug(const Surface &surface, Vector3 point, Vector3 halfSize)
{
    const float toEdge = std::min(halfSize.x - std::fabs(point.x), halfSize.z - std::fabs(point.z));
    const float weave = 0.80F + 0.4F * valueNoise(point.x * 260.0F, point.z * 130.0F);
    const float diamonds = fraction((std::fabs(point.x) + std::fabs(point.z)) * 3.4F);
    const float lattice =
        std::fabs(fraction(point.x * 3.4F) - 0.5F) + std::fabs(fraction(point.z * 3.4F) - 0.5F);
    Vector3 color = diamonds < 0.28F ? surface.secondColor : surface.color;
    if (lattice < 0.24F)
        color = {0.16F, 0.22F, 0.36F};
    if (toEdge < 0.22F)
        color =
            fraction(toEdge * 14.0F) < 0.45F ? surface.secondColor : Vector3{0.14F, 0.17F, 0.28F};
    return color * weave;
}

/// A small harbour at dusk, in oil.
Vector3 painting(Vector3 point, Vector3 halfSize)
{
    const float x = 2.0F * point.z / halfSize.z;
    const float y = point.y / halfSize.y;
    const float brush = fractalNoise(x * 6.0F + 2.0F * y, y * 14.0F, 4) - 0.5F;
    Vector3 color =
        mix({0.82F, 0.47F, 0.20F}, {0.16F, 0.24F, 0.46F}, smoothStep(-0.1F, 0.9F, y + brush));
    if (y < -0.15F)
        color = mix({0.10F, 0.20F, 0.32F}, {0.62F, 0.40F, 0.22F},
                    smoothStep(0.1F, 0.45F, brush + 0.3F));
    const float hills = -0.15F + 0.35F * fractalNoise(x * 1.1F + 4.0F, 2.0F, 3);
    if (y >= -0.15F && y < hills)
        color = {0.14F, 0.13F, 0.20F};
    const float sail = (y + 0.35F) * 0.42F;
    if (y > -0.35F && y < 0.55F && x > -0.45F + sail && x < 0.05F)
        color = {0.86F, 0.80F, 0.66F};
    if (y > -0.50F && y < -0.38F && std::fabs(x + 0.2F) < 0.42F)
        color = {0.30F, 0.09F, 0.06F};
    return color * (0.95F + 0.5F * brush);
}

Vector3 ceramic(const Surface &surface, Vector3 point, int variant)
{
    const float height = point.y * 14.0F + static_cast<float>(variant % 3);
    const float ring = fraction(height * 0.25F);
    const float angle = std::atan2(point.x, point.z);
    const bool isDrawn =
        ring < 0.12F || (ring > 0.4F && ring < 0.6F && std::sin(angle * 10.0F) > 0.2F);
    return isDrawn ? surface.secondColor : surface.color;
}

Vector3 mottled(const Surface &surface, Vector3 point, int variant)
{
    const float offset = 5.3F * static_cast<float>(variant);
    const float spots =
        fractalNoise(point.x * 26.0F + offset, point.y * 26.0F + point.z * 19.0F, 4);
    return mix(surface.color, surface.secondColor, smoothStep(0.3F, 0.75F, spots));
}

Vector3 cloth(const Surface &surface, Vector3 point)
{
    const float angle = std::atan2(point.x, point.z);
    const float weave = valueNoise(point.y * 330.0F, angle * 25.0F);
    const bool isStripe = fraction(point.y * 2.6F) < 0.16F;
    return (isStripe ? surface.secondColor : surface.color) * (0.82F + 0.36F * weave);
}

} // namespace

Vector3 colorAt(const Surface &surface, Vector3 point, Vector3 normal, Vector3 halfSize,
                int variant)
{
    const Flat at = flattened(point, normal);
    switch (surface.pattern) {
    case Pattern::Plain:
        return surface.color;
    case Pattern::Plaster:
        return plaster(surface, at);
    case Pattern::Bricks:
        return bricks(surface, at);
    case Pattern::Planks:
        return planks(surface, at);
    case Pattern::WoodGrain:
        return woodGrain(surface, at, halfSize, variant);
    case Pattern::Drawers:
        return drawers(surface, at, halfSize, variant);
    case Pattern::BookSpine:
        return bookSpine(surface, point, normal, halfSize, variant);
    case Pattern::Rug:
        return rug(surface, point, halfSize);
    case Pattern::Painting:
        return painting(point, halfSize);
    case Pattern::Ceramic:
        return ceramic(surface, point, variant);
    case Pattern::Mottled:
        return mottled(surface, point, variant);
    case Pattern::Cloth:
        return cloth(surface, point);
    }
    return surface.color;
}

} // namespace sample
