#pragma once

#include "ExifTags.h"

#include <optional>

namespace brackets {

/// How far the camera moved the exposure of this shot because it was bracketing, in stops, as its
/// maker note tells: Canon's and Nikon's. Nothing for other cameras, and where the note is damaged.
/// (The tags are those that ExifTool's documentation lists as AEBBracketValue and
/// ExposureBracketValue.) Any thread.
std::optional<double> bracketStopsIn(const ExifTags &tags);

} // namespace brackets
