#pragma once

#include "veskhdr_export.h"

#include <QImage>
#include <QList>

/// Lightness-weighted mean of the pictures, per pixel and channel. A picture weighs exp(-d * d) at
/// a pixel, d being the distance of the pixel's HSL lightness (0..1) from 0.5.
/// pictures: any QImage formats, 8 bits per channel are used, alpha is ignored; borrowed.
/// Returns a new Format_RGB32 image of the first picture's size (alpha 255) that the caller owns,
/// or null when the list is empty, a later picture has another size, or memory is lacking.
/// Any thread, reentrant.
VESKHDR_EXPORT QImage *mergeExposures(const QList<QImage *> &pictures);
