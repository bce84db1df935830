#pragma once

#include "radiance_options.h"

#include <vector>

/// The light of a scene from shots at several exposures: the weighted mean of what each shot says
/// of it, after its levels are turned into light. The model and the recovery of the curve are those
/// of P. Debevec and J. Malik, "Recovering High Dynamic Range Radiance Maps from Photographs",
/// SIGGRAPH 1997, section 2.1, solved for all shots and for small errors of the exposures at once.
/// A shot's weight is its exposure within the range that is neither black nor clipped: the best for
/// noise of light (S. Hasinoff, F. Durand, W. Freeman, "Noise-Optimal Capture for High Dynamic
/// Range Photography", CVPR 2010, section 3; P. Hanji, F. Zhong, R. Mantiuk, "Noise-Aware Merging
/// of High Dynamic Range Image Stacks without Camera Calibration", ECCV Workshops 2020, section 4).
namespace radiance {

/// Merges 1 to fusion::kMostShots shots of one size, upright, in the formats that fusion takes and
/// with its masks; a pixel that is not opaque is not covered by its shot. Where all masks are 0 all
/// shots count. The sums are taken in the order of the exposures, so another order of the shots
/// changes no more than the last digits of the exposures do when they are fitted. The number of
/// threads changes no bit. Throws nothing. Any thread, reentrant; uses all cores inside the call.
Result merge(std::vector<Shot> shots, const Options &options = {},
             const fusion::Control &control = {});

} // namespace radiance
