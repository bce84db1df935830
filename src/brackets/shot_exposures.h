#pragma once

#include <QStringList>

#include <vector>

namespace brackets {

/// How much light each shot of a bracket let in, as its file tells.
struct ShotExposures
{
    /// Exposure time times sensitivity by the f-number squared, or what stands for it in all shots
    /// alike; empty unless all tell.
    std::vector<double> relative;
    bool hasScale = false; ///< they are seconds times ISO's number by the f-number squared
};

/// Reads it from time, aperture and sensitivity; else from the time alone, or from the exposure
/// bias. Camera raw files too.
ShotExposures shotExposures(const QStringList &paths);

/// The candelas per square metre that a shot with this exposure (with a scale) shows as white, by
/// ISO 12232's saturation based speed and a usual lens: 78 / (0.65 exposure).
double luminanceOfWhite(double exposure);

} // namespace brackets
