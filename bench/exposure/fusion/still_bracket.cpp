#include "still_bracket.h"

#include "parallel_rows.h"

#include <algorithm>
#include <cmath>

namespace {

/// Light of the scene, 0..1, from dark on the left to bright on the right, with structure.
double lightAt(int x, int y, QSize size)
{
    const double ramp = std::pow(2.0, 8.0 * x / size.width() - 8.0);
    const unsigned hash = (unsigned(x) * 73856093U) ^ (unsigned(y) * 19349663U);
    const double grain = double((hash >> 7) % 256) / 256;
    return ramp * (0.7 + 0.2 * std::sin(x * 0.05) * std::cos(y * 0.03) + 0.1 * grain);
}

} // namespace

std::vector<QImage> stillBracket(int count, QSize size, bool moves)
{
    const double step = std::min(2.0, 10.0 / std::max(1, count - 1)); // stops
    std::vector<QImage> shots;
    for (int i = 0; i < count; ++i) {
        const double exposure = std::exp2(step * (i - (count - 1) / 2.0)) * 8;
        const double discX = size.width() * (0.3 + 0.4 * i / count);
        const double radius = size.height() / 12.0;
        QImage shot(size, QImage::Format_RGB32);
        uchar *bits = shot.bits();
        const qsizetype rowBytes = shot.bytesPerLine();
        parallel::rows(size, [&](int begin, int end) {
            for (int y = begin; y < end; ++y) {
                auto *row = reinterpret_cast<QRgb *>(bits + y * rowBytes);
                for (int x = 0; x < size.width(); ++x) {
                    const bool isDisc =
                        moves && std::hypot(x - discX, y - size.height() * 0.5) < radius;
                    const double light = isDisc ? 0.02 : lightAt(x, y, size);
                    const int level =
                        int(255 * std::min(1.0, std::pow(light * exposure, 1 / 2.2)) + 0.5);
                    row[x] = qRgb(level, level * 15 / 16, level * 7 / 8);
                }
            }
        });
        shots.push_back(shot);
    }
    return shots;
}

QSize sizeOf(double megapixels)
{
    const int height = int(std::sqrt(megapixels * 1e6 * 3 / 4));
    return {height * 4 / 3, height};
}
