#pragma once

#include "Look.h"

#include <QImage>

namespace exposure {

/// A look to begin with, from how the luma of the picture is distributed: black and white point
/// where a thousandth of the pixels lies beyond; exposure that brings the median half of the way to
/// the middle, by a stop and a half at most; shadows up and highlights down by how far a tenth of
/// the pixels lies in them. Contrast and saturation stay: they are a matter of taste. A picture
/// that uses its range well gets a look that is nearly neutral; one colour throughout, a neutral
/// one. Any format; any thread.
Look automaticLook(const QImage &picture);

} // namespace exposure
