#pragma once

#include <algorithm>
#include <cmath>

namespace sample {

/// A point or direction in metres, or a linear RGB colour (x red, y green, z blue).
struct Vector3
{
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;
};

inline Vector3 operator+(Vector3 a, Vector3 b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vector3 operator-(Vector3 a, Vector3 b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vector3 operator*(Vector3 a, Vector3 b)
{
    return {a.x * b.x, a.y * b.y, a.z * b.z};
}
inline Vector3 operator*(Vector3 a, float s)
{
    return {a.x * s, a.y * s, a.z * s};
}
inline Vector3 operator*(float s, Vector3 a)
{
    return a * s;
}
inline Vector3 operator-(Vector3 a)
{
    return a * -1.0F;
}
inline Vector3 &operator+=(Vector3 &a, Vector3 b)
{
    return a = a + b;
}

inline float dot(Vector3 a, Vector3 b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline float length(Vector3 a)
{
    return std::sqrt(dot(a, a));
}
inline Vector3 normalized(Vector3 a)
{
    return a * (1.0F / length(a));
}
inline Vector3 cross(Vector3 a, Vector3 b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline float mix(float a, float b, float t)
{
    return a + (b - a) * t;
}
inline Vector3 mix(Vector3 a, Vector3 b, float t)
{
    return a + (b - a) * t;
}
inline float clamp01(float t)
{
    return std::min(std::max(t, 0.0F), 1.0F);
}
inline float smoothStep(float low, float high, float value)
{
    const float t = clamp01((value - low) / (high - low));
    return t * t * (3.0F - 2.0F * t);
}

struct Ray
{
    Vector3 origin;
    Vector3 direction;
    Vector3 at(float distance) const { return origin + direction * distance; }
};

/// Three axes as columns.
struct Matrix3
{
    Vector3 x{1.0F, 0.0F, 0.0F};
    Vector3 y{0.0F, 1.0F, 0.0F};
    Vector3 z{0.0F, 0.0F, 1.0F};
};

inline Vector3 operator*(const Matrix3 &m, Vector3 v)
{
    return m.x * v.x + m.y * v.y + m.z * v.z;
}

/// Product with the transpose: for a rotation, the way back.
inline Vector3 transposedProduct(const Matrix3 &m, Vector3 v)
{
    return {dot(m.x, v), dot(m.y, v), dot(m.z, v)};
}

/// Rotation about the upright axis by yaw, after one about the x axis by pitch. Radians.
inline Matrix3 rotation(float yaw, float pitch = 0.0F)
{
    const float c = std::cos(yaw);
    const float s = std::sin(yaw);
    const float cp = std::cos(pitch);
    const float sp = std::sin(pitch);
    return {{c, 0.0F, -s}, {s * sp, cp, c * sp}, {s * cp, -sp, c * cp}};
}

} // namespace sample
