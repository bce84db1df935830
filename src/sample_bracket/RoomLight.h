#pragma once

#include "Room.h"

#include <cstdint>

namespace sample {

/// How light travels in the room: daylight through the window, sun, lamp, and what the room itself
/// throws back once. Borrows the room. Const, any thread.
class RoomLight
{
public:
    explicit RoomLight(const Room &room)
        : room_(room)
    {
    }

    /// Unit normal in the world, on the side that the ray comes from.
    Vector3 facingNormal(const Hit &hit, const Ray &ray) const;

    /// Irradiance of everything but the sun, estimated by a few rays that key chooses.
    Vector3 irradiance(Vector3 position, Vector3 normal, std::uint64_t key) const;

    /// Irradiance of the sun; key chooses a point of its disc.
    Vector3 sunlight(Vector3 position, Vector3 normal, std::uint64_t key) const;

    /// Radiance back along the ray from a point that receives this irradiance.
    Vector3 reflected(const Hit &hit, const Ray &ray, Vector3 irradiance) const;

private:
    Vector3 windowLight(Vector3 position, Vector3 normal, std::uint64_t key) const;
    Vector3 lampLight(Vector3 position, Vector3 normal, std::uint64_t key) const;
    Vector3 bouncedLight(Vector3 position, Vector3 normal, bool withDaylight,
                         std::uint64_t key) const;
    /// Irradiance without any ray, for what is seen indirectly only.
    Vector3 roughIrradiance(Vector3 position, Vector3 normal) const;
    Vector3 roughRadiance(const Hit &hit, const Ray &ray, std::uint64_t key) const;
    Vector3 colorOf(const Hit &hit, Vector3 position) const;
    const Surface &surfaceOf(const Hit &hit) const;

    const Room &room_;
};

} // namespace sample
