#include "RoomLight.h"

#include "landscape.h"
#include "noise.h"

namespace sample {

namespace {

constexpr float kPi = 3.14159265F;
constexpr float kSunRadius = 0.004F;

// So near the window its area cannot be sampled well; rays into all directions can.
constexpr float kNearWindow = 0.35F;

/// Unit vector with cosine-weighted density around the normal, from two numbers in 0..1.
Vector3 hemisphereDirection(Vector3 normal, float u, float v)
{
    const Vector3 aside =
        std::fabs(normal.x) > 0.5F ? Vector3{0.0F, 1.0F, 0.0F} : Vector3{1.0F, 0.0F, 0.0F};
    const Vector3 tangent = normalized(cross(normal, aside));
    const Vector3 bitangent = cross(normal, tangent);
    const float radius = std::sqrt(u);
    const float angle = 2.0F * kPi * v;
    return tangent * (radius * std::cos(angle)) + bitangent * (radius * std::sin(angle)) +
           normal * std::sqrt(std::max(0.0F, 1.0F - u));
}

/// Number in 0..1, the index-th of count strata, moved within it by the key.
float stratified(int index, int count, std::uint64_t key)
{
    return (static_cast<float>(index) + uniform(key)) / static_cast<float>(count);
}

} // namespace

const Surface &RoomLight::surfaceOf(const Hit &hit) const
{
    const Solid &solid = room_.solids.solids()[static_cast<size_t>(hit.solid)];
    return room_.surfaces[static_cast<size_t>(solid.surface)];
}

Vector3 RoomLight::facingNormal(const Hit &hit, const Ray &ray) const
{
    const Vector3 normal =
        worldNormal(room_.solids.solids()[static_cast<size_t>(hit.solid)], hit.normal);
    return dot(normal, ray.direction) > 0.0F ? -normal : normal;
}

Vector3 RoomLight::colorOf(const Hit &hit, Vector3 position) const
{
    const Solid &solid = room_.solids.solids()[static_cast<size_t>(hit.solid)];
    return colorAt(surfaceOf(hit), ownPoint(solid, position), hit.normal, solid.halfSize,
                   hit.solid);
}

Vector3 RoomLight::irradiance(Vector3 position, Vector3 normal, std::uint64_t key) const
{
    const bool isNearWindow = position.z < kNearWindow;
    Vector3 sum = bouncedLight(position, normal, isNearWindow, hashed(key + 1));
    sum += lampLight(position, normal, hashed(key + 2));
    if (!isNearWindow)
        sum += windowLight(position, normal, hashed(key + 3));
    return sum;
}

Vector3 RoomLight::windowLight(Vector3 position, Vector3 normal, std::uint64_t key) const
{
    constexpr int kStrata = 2;
    const WindowOpening opening = windowOpening();
    const Vector3 size = opening.high - opening.low;
    Vector3 sum;
    for (int i = 0; i < kStrata * kStrata; ++i) {
        const auto index = 2 * static_cast<std::uint64_t>(i);
        const float u = stratified(i % kStrata, kStrata, key + index);
        const float v = stratified(i / kStrata, kStrata, key + index + 1);
        const Vector3 way = opening.low + Vector3{u * size.x, v * size.y, 0.0F} - position;
        const float distance = length(way);
        const Vector3 direction = way * (1.0F / distance);
        const float cosines = dot(normal, direction) * -direction.z;
        // The frame stands behind the plane of the opening, hence the ray goes on through the wall.
        if (cosines <= 0.0F || room_.solids.isBlocked({position, direction}, distance + 0.5F))
            continue;
        sum += broadRadiance(direction) * (cosines / (distance * distance));
    }
    return sum * (size.x * size.y / (kStrata * kStrata));
}

Vector3 RoomLight::lampLight(Vector3 position, Vector3 normal, std::uint64_t key) const
{
    constexpr int kSamples = 2;
    const Bulb bulb = lampBulb();
    Vector3 sum;
    for (std::uint64_t i = 0; i < kSamples; ++i) {
        const Vector3 jitter{uniform(key + 3 * i) - 0.5F, uniform(key + 3 * i + 1) - 0.5F,
                             uniform(key + 3 * i + 2) - 0.5F};
        const Vector3 way = bulb.center + jitter * (1.6F * bulb.radius) - position;
        const float distance = length(way);
        const Vector3 direction = way * (1.0F / distance);
        const float cosine = dot(normal, direction);
        const float free = distance - 2.0F * bulb.radius;
        if (cosine <= 0.0F || free <= 0.0F || room_.solids.isBlocked({position, direction}, free))
            continue;
        sum += bulb.radiance * (cosine * kPi * bulb.radius * bulb.radius / (distance * distance));
    }
    return sum * (1.0F / kSamples);
}

Vector3 RoomLight::bouncedLight(Vector3 position, Vector3 normal, bool withDaylight,
                                std::uint64_t key) const
{
    const int strata = withDaylight ? 4 : 3;
    Vector3 sum;
    for (int i = 0; i < strata * strata; ++i) {
        const auto index = 3 * static_cast<std::uint64_t>(i);
        const float u = stratified(i % strata, strata, key + index);
        const float v = stratified(i / strata, strata, key + index + 1);
        const Ray ray{position, hemisphereDirection(normal, u, v)};
        const Hit hit = room_.solids.nearestHit(ray);
        if (hit.hasHit())
            sum += roughRadiance(hit, ray, key + index + 2);
        else if (withDaylight)
            sum += broadRadiance(ray.direction);
    }
    return sum * (kPi / static_cast<float>(strata * strata));
}

Vector3 RoomLight::roughIrradiance(Vector3 position, Vector3 normal) const
{
    // The window as one far light, and a guess at what has been thrown to and fro already.
    const WindowOpening opening = windowOpening();
    const Vector3 size = opening.high - opening.low;
    const float area = size.x * size.y;
    const Vector3 way = (opening.low + opening.high) * 0.5F - position;
    const float square = dot(way, way);
    const float cosines = std::max(0.0F, dot(normal, way)) * std::fabs(way.z) / square;
    return Vector3{5.6F, 6.2F, 6.2F} * (0.7F * area * cosines / (square + 0.5F * area)) +
           Vector3{0.42F, 0.36F, 0.28F};
}

Vector3 RoomLight::roughRadiance(const Hit &hit, const Ray &ray, std::uint64_t key) const
{
    const Surface &surface = surfaceOf(hit);
    // The bulb itself is counted as the lamp.
    if (surface.emission.x > 10.0F)
        return {};
    const Vector3 position = ray.at(hit.distance);
    const Vector3 normal = facingNormal(hit, ray);
    const Vector3 irradiance = roughIrradiance(position, normal) + sunlight(position, normal, key);
    return colorOf(hit, position) * irradiance * (1.0F / kPi) + surface.emission;
}

Vector3 RoomLight::sunlight(Vector3 position, Vector3 normal, std::uint64_t key) const
{
    const float cosine = dot(normal, sunDirection());
    if (cosine <= 0.0F)
        return {};
    const Vector3 jitter{uniform(key) - 0.5F, uniform(key + 1) - 0.5F, 0.0F};
    const Ray ray{position, normalized(sunDirection() + jitter * (2.0F * kSunRadius))};
    const bool isInRoom = position.z > 0.0F;
    if (isInRoom && !windowOpening().contains(ray.at(-position.z / ray.direction.z)))
        return {};
    if (room_.solids.isBlocked(ray, kFarAway))
        return {};
    return sunIrradiance() * cosine;
}

Vector3 RoomLight::reflected(const Hit &hit, const Ray &ray, Vector3 irradiance) const
{
    const Surface &surface = surfaceOf(hit);
    const Vector3 position = ray.at(hit.distance);
    const Vector3 diffuse = colorOf(hit, position) * irradiance * (1.0F / kPi) + surface.emission;
    if (surface.gloss <= 0.0F)
        return diffuse;
    const Vector3 normal = facingNormal(hit, ray);
    const float cosine = -dot(normal, ray.direction);
    const float share = surface.gloss + 0.30F * std::pow(1.0F - clamp01(cosine), 5.0F);
    const Ray mirrored{position, ray.direction + normal * (2.0F * cosine)};
    const Hit seen = room_.solids.nearestHit(mirrored);
    const Vector3 reflection =
        seen.hasHit() ? roughRadiance(seen, mirrored, 0) : landscapeRadiance(mirrored.direction);
    return mix(diffuse, reflection, share);
}

} // namespace sample
