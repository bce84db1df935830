#pragma once

#include "Transform.h"

#include <QImage>

#include <functional>

/// Shots whose motion is known, because they are rendered with it.
namespace rendered {

/// Linear light of a scene, about 0..1 for a middle exposure, at any place of the reference.
using Scene = std::function<double(double x, double y)>;

/// Noise of many sizes, with edges: something to see everywhere.
Scene texturedScene(unsigned seed);

/// The same, with nothing to see above this line.
Scene skyAbove(double line, unsigned seed);

/// Windows in a wall, alike but for their curtains.
Scene houseFront();

/// Square tiles of nearly one shade, with dark joints.
Scene tiledFloor();

/// What a picture shows, continued beyond it by its border.
Scene photograph(const QImage &picture);

struct Camera
{
    QSize size{640, 480};
    registration::Matrix toReference = registration::identityMatrix(); ///< from the shot's pixels
    double stops = 0.0; ///< more light than the reference gets
    double noise = 0.0; ///< standard deviation, in 8-bit levels
    unsigned seed = 1;  ///< of the noise
};

/// 8 bits, sRGB, clipped as a sensor clips.
QImage shot(const Scene &scene, const Camera &camera);
/// The same with 16 bits of linear light.
QImage linearShot(const Scene &scene, const Camera &camera);

/// A turn about the middle, then a shift: from the shot onto the reference.
registration::Matrix turned(QSize size, double degrees, double x, double y);

/// A camera turned by so many degrees about its three axes, its focal length as long as the picture
/// is wide.
registration::Matrix tilted(QSize size, double yaw, double pitch, double roll);

} // namespace rendered
