#pragma once

#include <QImage>
#include <QList>

#include <vector>

namespace registration {

/// How a shot is exposed, by points spread over it.
struct ShotLight
{
    double brightness = 0.0;  ///< mean, 0..255, clipped points counted as they are
    double usableShare = 0.0; ///< of points neither nearly black nor nearly white, 0..1
};

/// shot: not null.
ShotLight shotLight(const QImage &shot);

/// Index of the best exposed shot: the largest usable share; the first of equals.
int bestExposed(const std::vector<ShotLight> &lights);

/// Indexes from the darkest to the brightest.
std::vector<int> orderOfBrightness(const std::vector<ShotLight> &lights);

} // namespace registration
