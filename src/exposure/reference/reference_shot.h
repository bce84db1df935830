#pragma once

#include "ShotLight.h"

#include <QList>

#include <vector>

namespace exposure {

/// Index of the shot of a set that the others are laid over and compared with, for every step that
/// needs one: the best exposed. That is the one that shows most, the square of the share of visible
/// points times their detail; of those that come within a fifth of it, the one in the middle of the
/// set's exposures, the better one of two as near to it. The same shot whatever the order.
/// lights: one or more. Any thread, reentrant.
int referenceShot(const std::vector<ShotLight> &lights);

/// shots: one or more, not null; borrowed for the call.
int referenceShot(const QList<QImage> &shots);

/// Of each shot. shots: not null; borrowed for the call.
std::vector<ShotLight> lightsOf(const QList<QImage> &shots);

/// Indexes from the darkest to the brightest; the same shots whatever their order.
std::vector<int> orderOfBrightness(const std::vector<ShotLight> &lights);

} // namespace exposure
