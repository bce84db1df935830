#pragma once

#include <QImage>

/// Brings the light of a scene to the white of the picture that was fused from the same shots.
namespace display {

/// What the light must be multiplied with: the median ratio of base and light over the pixels that
/// the base shows well, neither dark nor near white; over all that are not black where there are
/// none such; 1 where all is black. base: Format_RGB32. light: Format_RGBX32FPx4 of the same size,
/// linear, in the base's primaries. bounds: of the radiance, whose pixels are left out; may be
/// null. Looks at some hundred thousand pixels. Any thread, reentrant.
double whiteMatch(const QImage &base, const QImage &light, const QImage &bounds);

} // namespace display
