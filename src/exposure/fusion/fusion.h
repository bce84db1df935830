#pragma once

#include "fusion_options.h"

#include <QImage>

#include <vector>

/// Exposure fusion: one well exposed picture straight from the shots of a bracket, without a
/// radiance in between. T. Mertens, J. Kautz, F. Van Reeth, "Exposure Fusion", Pacific Graphics
/// 2007, section 3, over the pyramids of P. Burt and E. Adelson, "The Laplacian Pyramid as a
/// Compact Image Code", IEEE Transactions on Communications 31(4), 1983. docs/fusion.md has the
/// formulas.
namespace fusion {

/// Fuses 1 to 64 shots of one size. 8 bits a channel: Format_RGB32, ARGB32 or
/// ARGB32_Premultiplied; 16 bits: Format_RGBX64, RGBA64 or RGBA64_Premultiplied; other formats are
/// converted to one of these first, all to 16 bits when one has more than 8. A pixel that is not
/// opaque is not covered by its shot and has no weight there; where no shot covers, the shots'
/// edges are drawn out.
/// Gives an opaque picture that the caller owns, Format_RGB32 or Format_RGBX64, or says why not;
/// throws nothing, running out of memory is a failure like others. The result does not depend on
/// the order of the shots, on the number of threads or on the vector instructions. Any thread,
/// reentrant; uses all cores inside the call. Beside shots and result it needs less memory than the
/// shots, and lets go of masks that it is given for good as early as it can.
Result fuse(std::vector<Shot> shots, const Options &options = {}, const Control &control = {});

} // namespace fusion
