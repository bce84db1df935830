#pragma once

#include <QImage>

#include <functional>
#include <vector>

/// A scene whose light is known, and a camera that takes it with noise.
namespace simulatedCamera {

/// Light of red, green and blue of each pixel, row by row.
struct Scene
{
    QSize size;
    std::vector<float> light;
};

/// Smooth patches of any colour over this many stops, the brightest of light 1.
Scene scene(QSize size, double stops, quint32 seed);

/// From light, 0..1, to the level that the camera writes, 0..1.
using Curve = std::function<double(double)>;

double srgbLevel(double light);
/// Steeper in the middle and softer at both ends, as cameras do it.
double contrastyLevel(double light);

struct Camera
{
    Curve curve = &srgbLevel;
    double electrons = 10000.0; ///< of a pixel that is just white
    double readNoise = 5.0;     ///< electrons
};

/// The noise's variance of a light that the camera has just written as a level, quantisation to
/// 8 bits included; 0 for no noise but that.
double variance(const Camera &camera, double light);

/// Format_RGB32 or Format_RGBX64; light times exposure 1 is white.
QImage taken(const Scene &scene, const Camera &camera, double exposure, QImage::Format format,
             quint32 seed);

} // namespace simulatedCamera
