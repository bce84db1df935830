#include "camera_motion.h"

#include "noise.h"

#include <algorithm>
#include <cmath>

namespace sample {

namespace {

constexpr double kPi = 3.14159265358979323846;
/// The largest angles of a motion, in degrees.
struct Reach
{
    double roll;
    double tilt; ///< to the side, and up or down
};

Reach reachOf(Motion motion)
{
    switch (motion) {
    case Motion::Hand:
        return {0.25, 0.7};
    case Motion::Strong:
        return {2.0, 2.5};
    case Motion::None:
    case Motion::Shift:
        break;
    }
    return {0.0, 0.0};
}

Homography product(const Homography &a, const Homography &b)
{
    Homography result{};
    for (size_t i = 0; i < 9; ++i) {
        for (size_t k = 0; k < 3; ++k)
            result[i] += a[i / 3 * 3 + k] * b[k * 3 + i % 3];
    }
    return result;
}

/// About the axis that is neither of the two.
Homography rotation(double degrees, size_t one, size_t other)
{
    const double angle = degrees * kPi / 180;
    Homography map = moved({});
    map[one * 4] = map[other * 4] = std::cos(angle);
    map[one * 3 + other] = -std::sin(angle);
    map[other * 3 + one] = std::sin(angle);
    return map;
}

Homography turned(double yaw, double pitch, double roll, QSize size)
{
    // The renderer's view is 1.2 wide and .8 high, or more, at distance 1.
    const double focal = std::max(size.width() / 1.2, size.height() / 0.8);
    const double x = (size.width() - 1) / 2.0;
    const double y = (size.height() - 1) / 2.0;
    const Homography toPixels{focal, 0, x, 0, focal, y, 0, 0, 1};
    const Homography toRays{1 / focal, 0, -x / focal, 0, 1 / focal, -y / focal, 0, 0, 1};
    const Homography turn =
        product(rotation(yaw, 0, 2), product(rotation(pitch, 1, 2), rotation(roll, 0, 1)));
    Homography map = product(toPixels, product(turn, toRays));
    const double last = map[8];
    for (double &number : map)
        number /= last;
    return map;
}

/// Catmull and Rom's cubic: shares of the four values around a place between the middle two.
std::array<float, 4> sharesAt(float t)
{
    return {((2 - t) * t - 1) * t / 2, ((3 * t - 5) * t * t + 2) / 2, ((4 - 3 * t) * t + 1) * t / 2,
            (t - 1) * t * t / 2};
}

Vector3 within(Vector3 value, Vector3 least, Vector3 most)
{
    return {std::clamp(value.x, least.x, most.x), std::clamp(value.y, least.y, most.y),
            std::clamp(value.z, least.z, most.z)};
}

Vector3 radianceAt(const RadianceImage &radiance, QPointF place)
{
    const int left = static_cast<int>(std::floor(place.x())) - 1;
    const int top = static_cast<int>(std::floor(place.y())) - 1;
    const auto across = sharesAt(static_cast<float>(place.x() - std::floor(place.x())));
    const auto down = sharesAt(static_cast<float>(place.y() - std::floor(place.y())));
    Vector3 sum;
    Vector3 least = radiance.at(left, top);
    Vector3 most = least;
    for (int i = 0; i < 16; ++i) {
        const Vector3 value = radiance.at(left + i % 4, top + i / 4);
        sum = sum + value * (across[size_t(i % 4)] * down[size_t(i / 4)]);
        least = {std::min(least.x, value.x), std::min(least.y, value.y),
                 std::min(least.z, value.z)};
        most = {std::max(most.x, value.x), std::max(most.y, value.y), std::max(most.z, value.z)};
    }
    return within(sum, least, most);
}

} // namespace

QPointF mapped(const Homography &m, QPointF p)
{
    const double depth = m[6] * p.x() + m[7] * p.y() + m[8];
    return {(m[0] * p.x() + m[1] * p.y() + m[2]) / depth,
            (m[3] * p.x() + m[4] * p.y() + m[5]) / depth};
}

Homography moved(QPointF by)
{
    return {1, 0, by.x(), 0, 1, by.y(), 0, 0, 1};
}

QVector<Homography> cameraMotions(Motion motion, int shots, QSize size, quint32 seed)
{
    const Reach reach = reachOf(motion);
    QVector<Homography> maps;
    for (int shot = 0; shot < shots; ++shot) {
        const auto angle = [&](int draw, double most) {
            const std::uint64_t key = hashed(seed) + static_cast<std::uint64_t>(3 * shot + draw);
            return shot == 0 ? 0.0 : most * (2.0 * uniform(key) - 1.0);
        };
        maps.append(turned(angle(0, reach.tilt), angle(1, reach.tilt), angle(2, reach.roll), size));
    }
    return maps;
}

int reachOf(const QVector<Homography> &maps, QSize size)
{
    const double right = size.width() - 1;
    const double bottom = size.height() - 1;
    double reach = 0.0;
    for (const Homography &map : maps) {
        for (const QPointF corner :
             {QPointF(0, 0), QPointF(right, 0), QPointF(0, bottom), QPointF(right, bottom)}) {
            const QPointF at = mapped(map, corner);
            reach = std::max({reach, -at.x(), -at.y(), at.x() - right, at.y() - bottom});
        }
    }
    return static_cast<int>(std::ceil(reach));
}

RadianceImage seenBy(const RadianceImage &radiance, int margin, const Homography &toFirst,
                     QSize size)
{
    RadianceImage seen{size.width(), size.height(), {}};
    seen.pixels.reserve(static_cast<size_t>(size.width()) * static_cast<size_t>(size.height()));
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            seen.pixels.push_back(
                radianceAt(radiance, mapped(toFirst, QPointF(x, y)) + QPointF(margin, margin)));
    }
    return seen;
}

} // namespace sample
