#pragma once

#include "Transform.h"

#include <cstdint>
#include <vector>

namespace registration {

/// Where the pixels of one row of a resampled picture come from: places in the shot in columns and
/// rows times kPhases, rounded. A value.
struct RowPlaces
{
    explicit RowPlaces(int width);

    std::vector<int32_t> x;
    std::vector<int32_t> y;
};

/// Of row y: exact every 16 pixels, in even steps between. A perspective map bends by less than a
/// thousandth of a pixel over that. Places far outside the shot where the map has no finite one.
void findPlaces(const Matrix &toShot, int y, RowPlaces &places);

} // namespace registration
