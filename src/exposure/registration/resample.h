#pragma once

#include "Transform.h"

#include <QImage>
#include <QRect>

#include <atomic>
#include <vector>

namespace registration {

/// The shot laid over the reference, resampled once, at its full depth.
///
/// shot: upright, any format, not null; borrowed for the call. referenceSize: of the result.
/// Returns premultiplied pixels, as deep as the shot's: Format_ARGB32_Premultiplied, or
/// Format_RGBA64_Premultiplied for more than 8 bits per channel. Alpha is full where the shot
/// covers the reference and 0 (the whole pixel is 0) where it does not: what it covers in part, and
/// what lies beside a transparent pixel of the shot, counts as not covered. Colour space and
/// resolution are the shot's. A transform without motion (identity or unaligned) gives the shot
/// itself back, in its own format, when the sizes agree; whole-pixel shifts copy pixels as they
/// are.
///
/// The filter is Lanczos' with three lobes (Duchon, "Lanczos filtering in one and two dimensions",
/// J. Appl. Meteorology 18, 1979; Turkowski, "Filters for common resampling tasks", Graphics Gems,
/// 1990): of the usual ones it keeps most detail where shots hardly change their size. Each channel
/// stays within what the nearest 4 x 4 pixels have, so that there are no rings at clipped lights.
///
/// Null when memory is lacking or the call was cancelled. Any thread, reentrant; uses all cores
/// inside the call; equal pixels for any number of threads and on every vector target.
QImage resample(const QImage &shot, const Transform &transform, QSize referenceSize,
                const std::atomic<bool> *isCancelled = nullptr);

/// A large upright rectangle of the reference that all shots cover, for cropping: the largest about
/// the middle, each side then moved out as far as it goes. For whole-pixel shifts it is the largest
/// of all. Empty when some shot does not cover the middle.
/// sizes: of the shots, in the order of the transforms.
QRect commonArea(const std::vector<Transform> &transforms, const std::vector<QSize> &sizes,
                 QSize referenceSize);

} // namespace registration
