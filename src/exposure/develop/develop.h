#pragma once

#include "develop_options.h"

/// From the light of a scene, which knows no white, to a picture for the screen.
namespace develop {

/// light: Format_RGBX32FPx4, linear, of any primaries; what is not a number, or less than nothing,
/// counts as no light.
/// Exposure leaves the light 1 at white. Global is the operator of E. Reinhard, M. Stark,
/// P. Shirley, J. Ferwerda, "Photographic Tone Reproduction for Digital Images", SIGGRAPH 2002,
/// section 3.1, with the light that only one pixel in a thousand exceeds as the smallest that
/// becomes white. Local shows the light as a bracket that spans its range and fuses that, see
/// fusion.h: a compression in pyramids that has no halos to speak of.
/// The number of threads changes no bit. Beside the light it needs 8 bytes a pixel, Local 8 more
/// for each exposure of its bracket, at most 8 of them. Throws nothing: running out of memory is a
/// status. Any thread, reentrant; uses all cores inside the call.
Result picture(const QImage &light, const Options &options = {},
               const fusion::Control &control = {});

} // namespace develop
