#include "linear_solver.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLeastPivot = 1e-12;

/// The equations, with the right side as last column.
struct Equations
{
    size_t size;
    std::vector<double> rows;

    double &at(size_t row, size_t column) { return rows[row * (size + 1) + column]; }

    void swapRows(size_t a, size_t b)
    {
        for (size_t k = 0; k <= size; ++k)
            std::swap(at(a, k), at(b, k));
    }

    /// Takes so much of row `pivot` from row `row` that its number below the pivot vanishes.
    void subtract(size_t pivot, size_t row)
    {
        const double factor = at(row, pivot) / at(pivot, pivot);
        for (size_t k = pivot; k <= size; ++k)
            at(row, k) -= factor * at(pivot, k);
    }

    size_t largestBelow(size_t column)
    {
        size_t best = column;
        for (size_t row = column + 1; row < size; ++row) {
            if (std::abs(at(row, column)) > std::abs(at(best, column)))
                best = row;
        }
        return best;
    }
};

bool makeTriangular(Equations &equations)
{
    for (size_t column = 0; column < equations.size; ++column) {
        equations.swapRows(column, equations.largestBelow(column));
        if (!(std::abs(equations.at(column, column)) > kLeastPivot))
            return false;
        for (size_t row = column + 1; row < equations.size; ++row)
            equations.subtract(column, row);
    }
    return true;
}

std::vector<double> backSubstituted(Equations &equations)
{
    std::vector<double> x(equations.size);
    for (size_t row = equations.size; row-- > 0;) {
        double rest = equations.at(row, equations.size);
        for (size_t k = row + 1; k < equations.size; ++k)
            rest -= equations.at(row, k) * x[k];
        x[row] = rest / equations.at(row, row);
    }
    return x;
}

} // namespace

std::vector<double> registration::solved(std::vector<double> matrix, std::vector<double> right)
{
    const size_t size = right.size();
    Equations equations{size, std::vector<double>(size * (size + 1))};
    for (size_t row = 0; row < size; ++row) {
        std::copy_n(&matrix[row * size], size, &equations.at(row, 0));
        equations.at(row, size) = right[row];
    }
    if (!makeTriangular(equations))
        return {};
    return backSubstituted(equations);
}
