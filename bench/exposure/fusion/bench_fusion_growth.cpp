// How the time of the fusion grows with the size and the number of shots: processor time for each
// pixel of each shot, the least of some runs, which other programs disturb least.

#include "fusion.h"
#include "motion.h"
#include "still_bracket.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <limits>

namespace {

struct Case
{
    const char *title;
    int shots;
    double megapixels;
};

constexpr Case kCases[] = {{"2 shots, 4 megapixels", 2, 4},    {"2 shots, 9 megapixels", 2, 9},
                           {"2 shots, 36 megapixels", 2, 36},  {"2 shots, 100 megapixels", 2, 100},
                           {"5 shots, 4 megapixels", 5, 4},    {"15 shots, 4 megapixels", 15, 4},
                           {"30 shots, 4 megapixels", 30, 4},  {"5 shots, 36 megapixels", 5, 36},
                           {"15 shots, 16 megapixels", 15, 16}};

/// Times of one case, in nanoseconds of the processor a pixel and shot.
struct Times
{
    double fusion = std::numeric_limits<double>::max();
    double withMovement = std::numeric_limits<double>::max();
};

double processorSeconds()
{
    timespec time = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

/// Seconds of the search for movement and of the fusion.
std::pair<double, double> run(const std::vector<QImage> &pictures)
{
    const double start = processorSeconds();
    const std::vector<QImage> masks = motion::find(pictures).masks;
    const double found = processorSeconds();
    std::vector<fusion::Shot> shots;
    for (const QImage &picture : pictures)
        shots.push_back({picture, {}});
    const QImage plain = fusion::fuse(shots).picture;
    const double fused = processorSeconds();
    return {found - start, fused - found};
}

Times timesOf(const Case &some)
{
    constexpr int kRuns = 5;
    const std::vector<QImage> pictures = stillBracket(some.shots, sizeOf(some.megapixels), true);
    const double toNanoseconds =
        1e9 / (double(pictures[0].width()) * pictures[0].height() * some.shots);
    Times times;
    for (int i = 0; i < kRuns; ++i) {
        const auto [search, fusion] = run(pictures);
        times.fusion = std::min(times.fusion, fusion * toNanoseconds);
        times.withMovement = std::min(times.withMovement, (search + fusion) * toNanoseconds);
    }
    return times;
}

} // namespace

int main()
{
    Times least;
    Times most{0.0, 0.0};
    std::printf("nanoseconds of the processor a pixel and shot\n");
    for (const Case &some : kCases) {
        const Times times = timesOf(some);
        std::printf("%-26s fusion %5.2f, with the search for movement %5.2f\n", some.title,
                    times.fusion, times.withMovement);
        std::fflush(stdout);
        least = {std::min(least.fusion, times.fusion),
                 std::min(least.withMovement, times.withMovement)};
        most = {std::max(most.fusion, times.fusion),
                std::max(most.withMovement, times.withMovement)};
    }
    std::printf("%-26s fusion %5.2f, with the search for movement %5.2f   (goal: at most 1.2)\n",
                "largest / smallest", most.fusion / least.fusion,
                most.withMovement / least.withMovement);
    return 0;
}
