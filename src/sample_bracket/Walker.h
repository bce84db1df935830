#pragma once

#include "Room.h"

namespace sample {

/// The room with a person in it, who stands or walks there. feet: on the floor; stride: -1 to 1,
/// how far the legs swing. The person's solids come after all others.
Room withWalker(const Room &room, Vector3 feet, float stride);

} // namespace sample
