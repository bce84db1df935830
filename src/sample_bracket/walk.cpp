#include "walk.h"

#include "Walker.h"

#include <algorithm>
#include <cmath>

namespace sample {

namespace {

/// Light that is another one: shadows and mirror images, not what comes round three corners.
constexpr float kOtherLight = 0.2F;

constexpr uchar kPerson = 255;
constexpr uchar kLight = 128;

Room roomAt(const Room &room, int moment, int moments)
{
    const float way =
        moments > 1 ? static_cast<float>(moment) / static_cast<float>(moments - 1) : 0.5F;
    const Vector3 feet{mix(-1.75F, 1.45F, way), 0.0F, 0.75F};
    return withWalker(room, feet, moment % 2 == 0 ? 0.8F : -0.5F);
}

bool isOtherLight(Vector3 now, Vector3 before)
{
    const Vector3 difference = now - before;
    return dot(difference, difference) > kOtherLight * kOtherLight * dot(before, before);
}

QImage silhouetteAt(const std::vector<char> &isPerson, int width, QPoint origin, QSize size)
{
    QImage silhouette(size, QImage::Format_Grayscale8);
    for (int y = 0; y < size.height(); ++y) {
        uchar *out = silhouette.scanLine(y);
        const size_t row = static_cast<size_t>(origin.y() + y) * static_cast<size_t>(width);
        for (int x = 0; x < size.width(); ++x)
            out[x] = isPerson[row + static_cast<size_t>(origin.x() + x)] != 0 ? kPerson : uchar(0);
    }
    return silhouette;
}

void addChanges(const RadianceImage &now, const RadianceImage &before, const QImage &silhouette,
                QPoint origin, QImage &changed)
{
    for (int y = 0; y < changed.height(); ++y) {
        const uchar *person = silhouette.constScanLine(y);
        uchar *out = changed.scanLine(y);
        for (int x = 0; x < changed.width(); ++x) {
            const int column = origin.x() + x;
            const int row = origin.y() + y;
            const uchar light =
                isOtherLight(now.at(column, row), before.at(column, row)) ? kLight : uchar(0);
            out[x] = std::max({out[x], person[x], light});
        }
    }
}

} // namespace

Walk renderWalk(QSize size, int margin, int moments, QPoint origin)
{
    const Room room = furnishedRoom();
    const auto firstOfPerson = static_cast<int>(room.solids.solids().size());
    const RadianceImage empty = renderRoom(size.width(), size.height(), margin);
    Walk walk;
    walk.changed = QImage(size, QImage::Format_Grayscale8);
    walk.changed.fill(0);
    for (int moment = 0; moment < moments; ++moment) {
        const Room now = roomAt(room, moment, moments);
        walk.moments.push_back(renderRoom(size.width(), size.height(), margin, now));
        const std::vector<char> isPerson =
            pixelsOfSolids(size.width(), size.height(), margin, now, firstOfPerson);
        walk.silhouettes.push_back(silhouetteAt(isPerson, empty.width, origin, size));
        addChanges(walk.moments.back(), empty, walk.silhouettes.back(), origin, walk.changed);
    }
    return walk;
}

} // namespace sample
