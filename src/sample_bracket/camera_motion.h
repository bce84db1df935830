#pragma once

#include "room_renderer.h"

#include <QPointF>
#include <QSize>
#include <QVector>

#include <array>

namespace sample {

/// How the camera moves from shot to shot.
enum class Motion {
    None,  ///< it stands on a tripod
    Shift, ///< whole pixels
    Hand,  ///< turned and tilted as in a steady hand: a quarter of a degree, a 100th of the width
    Strong ///< turned by up to two degrees, tilted by up to a 25th of the width
};

/// A map between pixel centres, 3 x 3, row by row: (x, y) goes to (m0 x + m1 y + m2, m3 x + m4 y +
/// m5) divided by m6 x + m7 y + m8.
using Homography = std::array<double, 9>;

QPointF mapped(const Homography &map, QPointF point);

/// The whole-pixel move by so much.
Homography moved(QPointF by);

/// From each shot onto the first one, for a camera that turns about its lens; the first stands
/// straight. motion: Hand or Strong; otherwise nothing moves. The seed chooses the angles. Any
/// thread.
QVector<Homography> cameraMotions(Motion motion, int shots, QSize size, quint32 seed);

/// How far the maps bring anything of a picture of this size beyond its border, in whole pixels.
int reachOf(const QVector<Homography> &maps, QSize size);

/// What a turned camera sees: cubic interpolation (Catmull-Rom) that stays within the 4 x 4 values
/// around. margin: of the radiance image around the first shot's picture, 2 pixels more than the
/// map reaches.
RadianceImage seenBy(const RadianceImage &radiance, int margin, const Homography &toFirst,
                     QSize size);

} // namespace sample
