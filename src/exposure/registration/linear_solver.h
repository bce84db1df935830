#pragma once

#include <vector>

namespace registration {

/// Solves A x = b by elimination with row pivots. matrix: size * size numbers, row by row; right:
/// size numbers. Returns x, or nothing when the equations do not settle it.
std::vector<double> solved(std::vector<double> matrix, std::vector<double> right);

} // namespace registration
