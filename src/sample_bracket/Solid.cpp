#include "Solid.h"

#include <utility>

namespace sample {

namespace {

/// A ray that starts on a surface must not hit it again right there.
constexpr float kNearest = 1e-4F;

bool shorten(Hit &hit, float distance, Vector3 normal)
{
    if (!(distance > kNearest && distance < hit.distance))
        return false;
    hit.distance = distance;
    hit.normal = normal;
    return true;
}

bool intersectBox(const Ray &ray, Hit &hit)
{
    const float origin[] = {ray.origin.x, ray.origin.y, ray.origin.z};
    const float direction[] = {ray.direction.x, ray.direction.y, ray.direction.z};
    float enter = -kFarAway;
    float leave = kFarAway;
    int enterAxis = 0;
    int leaveAxis = 0;
    for (int axis = 0; axis < 3; ++axis) {
        const float inverse = 1.0F / direction[axis];
        const float center = -origin[axis] * inverse;
        const float reach = std::fabs(inverse);
        if (center - reach > enter) {
            enter = center - reach;
            enterAxis = axis;
        }
        if (center + reach < leave) {
            leave = center + reach;
            leaveAxis = axis;
        }
    }
    if (enter > leave || leave < kNearest)
        return false;
    const bool inside = enter < kNearest;
    const int axis = inside ? leaveAxis : enterAxis;
    const float sign = (direction[axis] > 0.0F) == inside ? 1.0F : -1.0F;
    return shorten(hit, inside ? leave : enter,
                   {axis == 0 ? sign : 0.0F, axis == 1 ? sign : 0.0F, axis == 2 ? sign : 0.0F});
}

bool intersectBall(const Ray &ray, Hit &hit)
{
    const float a = dot(ray.direction, ray.direction);
    const float b = dot(ray.origin, ray.direction);
    const float c = dot(ray.origin, ray.origin) - 1.0F;
    const float square = b * b - a * c;
    if (square < 0.0F)
        return false;
    const float root = std::sqrt(square);
    const float near = (-b - root) / a;
    const float distance = near > kNearest ? near : (-b + root) / a;
    return shorten(hit, distance, ray.at(distance));
}

bool intersectTube(const Ray &ray, float topRadius, Hit &hit)
{
    // Radius at height y: middle + slope * y.
    const float slope = 0.5F * (topRadius - 1.0F);
    const float middle = 0.5F * (topRadius + 1.0F);
    const Vector3 o = ray.origin;
    const Vector3 d = ray.direction;
    const float radius = middle + slope * o.y;
    const float a = d.x * d.x + d.z * d.z - slope * slope * d.y * d.y;
    const float b = o.x * d.x + o.z * d.z - slope * d.y * radius;
    const float c = o.x * o.x + o.z * o.z - radius * radius;
    const float square = b * b - a * c;
    if (square < 0.0F || std::fabs(a) < 1e-12F)
        return false;
    const float root = std::sqrt(square);
    float roots[] = {(-b - root) / a, (-b + root) / a};
    if (roots[0] > roots[1])
        std::swap(roots[0], roots[1]);
    for (const float distance : roots) {
        const Vector3 point = ray.at(distance);
        if (std::fabs(point.y) > 1.0F || distance < kNearest)
            continue;
        return shorten(hit, distance, {point.x, -slope * (middle + slope * point.y), point.z});
    }
    return false;
}

bool intersectEnds(const Ray &ray, float topRadius, Hit &hit)
{
    bool nearer = false;
    for (const float end : {-1.0F, 1.0F}) {
        const float distance = (end - ray.origin.y) / ray.direction.y;
        const Vector3 point = ray.at(distance);
        const float radius = end > 0.0F ? topRadius : 1.0F;
        if (point.x * point.x + point.z * point.z <= radius * radius)
            nearer |= shorten(hit, distance, {0.0F, end, 0.0F});
    }
    return nearer;
}

} // namespace

void Bounds::include(Vector3 point)
{
    low = {std::min(low.x, point.x), std::min(low.y, point.y), std::min(low.z, point.z)};
    high = {std::max(high.x, point.x), std::max(high.y, point.y), std::max(high.z, point.z)};
}

void Bounds::include(const Bounds &other)
{
    include(other.low);
    include(other.high);
}

Bounds boundsOf(const Solid &solid)
{
    Bounds bounds;
    const float wide = std::max(1.0F, solid.topRadius);
    for (int corner = 0; corner < 8; ++corner) {
        const Vector3 unit{(corner & 1) != 0 ? wide : -wide, (corner & 2) != 0 ? 1.0F : -1.0F,
                           (corner & 4) != 0 ? wide : -wide};
        bounds.include(solid.center + solid.axes * (unit * solid.halfSize));
    }
    return bounds;
}

bool intersect(const Solid &solid, const Ray &ray, Hit &hit)
{
    const Vector3 h = solid.halfSize;
    const Vector3 inverse{1.0F / h.x, 1.0F / h.y, 1.0F / h.z};
    // Distances stay those of the world, because the direction is scaled along.
    const Ray local{transposedProduct(solid.axes, ray.origin - solid.center) * inverse,
                    transposedProduct(solid.axes, ray.direction) * inverse};
    switch (solid.shape) {
    case Shape::Box:
        return intersectBox(local, hit);
    case Shape::Ball:
        return intersectBall(local, hit);
    case Shape::Tube:
        return intersectTube(local, solid.topRadius, hit);
    case Shape::Cone:
        break;
    }
    const bool side = intersectTube(local, solid.topRadius, hit);
    const bool ends = intersectEnds(local, solid.topRadius, hit);
    return side || ends;
}

Vector3 ownPoint(const Solid &solid, Vector3 point)
{
    return transposedProduct(solid.axes, point - solid.center);
}

Vector3 worldNormal(const Solid &solid, Vector3 shapeNormal)
{
    const Vector3 h = solid.halfSize;
    return normalized(solid.axes *
                      Vector3{shapeNormal.x / h.x, shapeNormal.y / h.y, shapeNormal.z / h.z});
}

} // namespace sample
