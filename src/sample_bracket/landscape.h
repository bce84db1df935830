#pragma once

#include "Vector3.h"

namespace sample {

/// What is to be seen out of the window: lake, meadow, woods, mountains, clouds. Linear RGB
/// radiance in the unit of the scene (white paper in the sun is about 10).
Vector3 landscapeRadiance(Vector3 direction);

/// The same for lighting: sky and ground as broad areas, without detail.
Vector3 broadRadiance(Vector3 direction);

/// Unit vector towards the sun, and the irradiance that it gives to a surface that faces it.
Vector3 sunDirection();
Vector3 sunIrradiance();

} // namespace sample
