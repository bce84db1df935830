// How time grows with the size of the pictures and with their number. The column "perPixel" is the
// time per pixel and picture: it should stay the same from 4 megapixels on.

#include "bench_pictures.h"
#include "exposure_merge.h"
#include "mtb_shifts.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace {

template <typename Work>
void addCase(const std::string &step, int count, int megapixels, Work work)
{
    const std::string name =
        step + ", " + std::to_string(count) + " x " + std::to_string(megapixels) + " MP";
    benchmark::RegisterBenchmark(
        name.c_str(),
        [=](benchmark::State &state) {
            const BenchBracket bracket(count, sizeOfMegapixels(megapixels));
            for (auto _ : state)
                work(bracket.list());
            const double pixels = megapixels * 1e6 * count;
            state.counters["perPixel"] =
                benchmark::Counter(pixels, benchmark::Counter::kIsIterationInvariantRate |
                                               benchmark::Counter::kInvert);
        })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->MinTime(1.0);
}

void merge(const QList<QImage *> &pictures)
{
    delete mergeExposures(pictures);
}

void findShifts(const QList<QImage *> &pictures)
{
    benchmark::DoNotOptimize(mtb::pairShifts(pictures));
}

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    for (const int megapixels : {1, 4, 16, 64}) {
        addCase("merge", 3, megapixels, merge);
        addCase("find shifts", 3, megapixels, findShifts);
    }
    for (const int count : {2, 3, 4, 5}) {
        addCase("merge", count, 12, merge);
        addCase("find shifts", count, 12, findShifts);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
