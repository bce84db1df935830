#include "Transform.h"

#include "linear_solver.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLeastScale = 1e-9;

registration::Matrix scaled(registration::Matrix matrix)
{
    const double last = matrix[8];
    if (!(std::abs(last) > kLeastScale))
        return registration::identityMatrix();
    for (double &value : matrix)
        value /= last;
    return matrix;
}

double distance(QPointF a, QPointF b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

} // namespace

registration::Matrix registration::identityMatrix()
{
    return {1, 0, 0, 0, 1, 0, 0, 0, 1};
}

registration::Matrix registration::shiftMatrix(double x, double y)
{
    return {1, 0, x, 0, 1, y, 0, 0, 1};
}

registration::Matrix registration::product(const Matrix &first, const Matrix &second)
{
    Matrix result{};
    for (size_t row = 0; row < 3; ++row) {
        for (size_t column = 0; column < 3; ++column) {
            for (size_t k = 0; k < 3; ++k)
                result[3 * row + column] += first[3 * row + k] * second[3 * k + column];
        }
    }
    return scaled(result);
}

registration::Matrix registration::inverse(const Matrix &m)
{
    return scaled({m[4] * m[8] - m[5] * m[7], m[2] * m[7] - m[1] * m[8], m[1] * m[5] - m[2] * m[4],
                   m[5] * m[6] - m[3] * m[8], m[0] * m[8] - m[2] * m[6], m[2] * m[3] - m[0] * m[5],
                   m[3] * m[7] - m[4] * m[6], m[1] * m[6] - m[0] * m[7],
                   m[0] * m[4] - m[1] * m[3]});
}

QPointF registration::mapped(const Matrix &m, QPointF p)
{
    const double scale = m[6] * p.x() + m[7] * p.y() + m[8];
    return {(m[0] * p.x() + m[1] * p.y() + m[2]) / scale,
            (m[3] * p.x() + m[4] * p.y() + m[5]) / scale};
}

std::array<QPointF, 4> registration::corners(QSize size)
{
    const double right = size.width() - 1;
    const double bottom = size.height() - 1;
    return {QPointF(0, 0), QPointF(right, 0), QPointF(right, bottom), QPointF(0, bottom)};
}

double registration::cornerDistance(const Matrix &first, const Matrix &second, QSize size)
{
    double largest = 0;
    for (QPointF corner : corners(size))
        largest = std::max(largest, distance(mapped(first, corner), mapped(second, corner)));
    return largest;
}

registration::Matrix registration::matrixFromCorners(const std::array<QPointF, 4> &from,
                                                     const std::array<QPointF, 4> &to)
{
    std::vector<double> equations;
    std::vector<double> right;
    for (size_t i = 0; i < 4; ++i) {
        const double x = from[i].x();
        const double y = from[i].y();
        const double u = to[i].x();
        const double v = to[i].y();
        equations.insert(equations.end(), {x, y, 1, 0, 0, 0, -u * x, -u * y});
        equations.insert(equations.end(), {0, 0, 0, x, y, 1, -v * x, -v * y});
        right.insert(right.end(), {u, v});
    }
    const std::vector<double> h = solved(equations, right);
    if (h.empty())
        return identityMatrix();
    return {h[0], h[1], h[2], h[3], h[4], h[5], h[6], h[7], 1};
}

bool registration::isWholeShift(const Matrix &m)
{
    const Matrix shift = shiftMatrix(std::round(m[2]), std::round(m[5]));
    return m == shift;
}

QString registration::kindName(Kind kind)
{
    switch (kind) {
    case Kind::Identity:
        return QStringLiteral("identity");
    case Kind::Shift:
        return QStringLiteral("shift");
    case Kind::Rigid:
        return QStringLiteral("rigid");
    case Kind::Perspective:
        return QStringLiteral("perspective");
    case Kind::Unaligned:
        break;
    }
    return QStringLiteral("unaligned");
}

QString registration::reasonText(Reason reason)
{
    switch (reason) {
    case Reason::None:
        break;
    case Reason::TooSmall:
        return QStringLiteral("the picture is too small");
    case Reason::NoDetail:
        return QStringLiteral("there is too little detail that both pictures show");
    case Reason::NoMatch:
        return QStringLiteral("it does not show the same scene as the others");
    }
    return {};
}
