#pragma once

#include "room_renderer.h"

#include <QImage>
#include <QPoint>
#include <QSize>

namespace sample {

/// Photographs part of a radiance image with the exposure given in stops (0 is what the camera
/// would choose by itself), for each pixel and channel:
///
///   light   h = radiance * 0.28 * 2^stops                     1 fills the sensor
///   sensor  e = h * F + g * sqrt(h * F + R^2)                 photon and read noise, electrons;
///                                                             F full well, R read noise, g normal
///   raw     r = round(clamp(e / F, 0, 1) * 4095)              12 bits; this is where light clips
///   tone    t = (1 - exp(-a * r / 4095)) / (1 - exp(-a))      film-like shoulder, a = 2.2
///   value   v = round(255 * t^(1 / 2.2))
///
/// origin: what the picture's top left pixel shows, in pixels of the radiance image; the whole
/// picture must lie inside it. noiseSeed chooses g. Returns a Format_RGB32 picture.
/// Any thread, reentrant.
QImage photograph(const RadianceImage &radiance, QPoint origin, QSize size, double stops,
                  std::uint32_t noiseSeed);

} // namespace sample
