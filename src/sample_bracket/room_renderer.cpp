#include "room_renderer.h"

#include "LightMap.h"
#include "Room.h"
#include "RoomLight.h"
#include "landscape.h"
#include "noise.h"
#include "parallel_rows.h"

namespace sample {

namespace {

// Half of what the picture shows at distance 1.
constexpr float kViewHalfWidth = 0.60F;
constexpr float kViewHalfHeight = 0.40F;

// Side of a texel of the light map, in pixels of the picture.
constexpr int kTexelSize = 4;

// Four positions in a pixel that share no row and no column, the first two far apart.
constexpr float kSubPixels[][2] = {{-0.3F, -0.4F}, {0.3F, 0.4F}, {0.4F, -0.3F}, {-0.4F, 0.3F}};

/// True when more rays would hardly change the mean of the two.
bool areAlike(Vector3 a, Vector3 b)
{
    const Vector3 difference = a - b;
    return dot(difference, difference) < 0.006F * dot(a + b, a + b);
}

class Renderer
{
public:
    Renderer(int width, int height, int margin, const Room &room)
        : width_(width + 2 * margin)
        , height_(height + 2 * margin)
        , pixelSize_(std::min(2.0F * kViewHalfWidth / static_cast<float>(width),
                              2.0F * kViewHalfHeight / static_cast<float>(height)))
        , room_(room)
        , light_(room_)
        , lightMap_((width_ + kTexelSize - 1) / kTexelSize, (height_ + kTexelSize - 1) / kTexelSize)
    {
    }

    RadianceImage render()
    {
        parallel::each(lightMap_.height(), [this](int y) { gatherLightRow(y); });
        lightMap_.smooth();
        RadianceImage image{width_, height_, {}};
        image.pixels.resize(static_cast<size_t>(width_) * static_cast<size_t>(height_));
        parallel::each(height_, [&](int y) {
            Vector3 *row =
                image.pixels.data() + static_cast<size_t>(y) * static_cast<size_t>(width_);
            for (int x = 0; x < width_; ++x)
                row[x] = pixel(x, y);
        });
        return image;
    }

    std::vector<char> pixelsOfSolids(int firstSolid) const
    {
        std::vector<char> found(static_cast<size_t>(width_) * static_cast<size_t>(height_));
        parallel::each(height_, [&](int y) {
            for (int x = 0; x < width_; ++x) {
                const Ray ray = rayAt(static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F);
                found[static_cast<size_t>(y) * static_cast<size_t>(width_) +
                      static_cast<size_t>(x)] = room_.solids.nearestHit(ray).solid >= firstSolid;
            }
        });
        return found;
    }

private:
    /// Ray through a position on the canvas, in pixels.
    Ray rayAt(float x, float y) const
    {
        return viewRay((x - 0.5F * static_cast<float>(width_)) * pixelSize_,
                       (y - 0.5F * static_cast<float>(height_)) * pixelSize_);
    }

    void gatherLightRow(int y)
    {
        for (int x = 0; x < lightMap_.width(); ++x) {
            const Ray ray = rayAt((static_cast<float>(x) + 0.5F) * kTexelSize,
                                  (static_cast<float>(y) + 0.5F) * kTexelSize);
            const Hit hit = room_.solids.nearestHit(ray);
            if (!hit.hasHit())
                continue;
            LightMap::Texel &texel = lightMap_.at(x, y);
            texel.distance = hit.distance;
            texel.position = ray.at(hit.distance);
            texel.normal = light_.facingNormal(hit, ray);
            texel.irradiance = light_.irradiance(texel.position, texel.normal, keyAt(x, y));
        }
    }

    Vector3 pixel(int x, int y) const
    {
        const Vector3 first = subPixel(x, y, 0);
        const Vector3 second = subPixel(x, y, 1);
        if (areAlike(first, second))
            return (first + second) * 0.5F;
        return (first + second + subPixel(x, y, 2) + subPixel(x, y, 3)) * 0.25F;
    }

    Vector3 subPixel(int x, int y, int index) const
    {
        return radiance(static_cast<float>(x) + 0.5F + kSubPixels[index][0],
                        static_cast<float>(y) + 0.5F + kSubPixels[index][1],
                        hashed(keyAt(x, y) + static_cast<std::uint64_t>(index)));
    }

    Vector3 radiance(float x, float y, std::uint64_t key) const
    {
        const Ray ray = rayAt(x, y);
        const Hit hit = room_.solids.nearestHit(ray);
        if (!hit.hasHit())
            return landscapeRadiance(ray.direction);
        const Vector3 position = ray.at(hit.distance);
        const Vector3 normal = light_.facingNormal(hit, ray);
        Vector3 irradiance;
        if (!lightMap_.lookUp(x / kTexelSize, y / kTexelSize, position, normal, irradiance))
            irradiance = light_.irradiance(position, normal, key);
        irradiance += light_.sunlight(position, normal, key);
        return light_.reflected(hit, ray, irradiance);
    }

    std::uint64_t keyAt(int x, int y) const
    {
        return hashed((static_cast<std::uint64_t>(y) << 32U) + static_cast<std::uint64_t>(x));
    }

    int width_;
    int height_;
    float pixelSize_;
    const Room &room_;
    RoomLight light_;
    LightMap lightMap_;
};

} // namespace

RadianceImage renderRoom(int width, int height, int margin)
{
    return renderRoom(width, height, margin, furnishedRoom());
}

RadianceImage renderRoom(int width, int height, int margin, const Room &room)
{
    return Renderer(width, height, margin, room).render();
}

std::vector<char> pixelsOfSolids(int width, int height, int margin, const Room &room,
                                 int firstSolid)
{
    return Renderer(width, height, margin, room).pixelsOfSolids(firstSolid);
}

} // namespace sample
