// The fusion beside OpenCV's, with and without the search for movement, and its memory. Ratios in
// one run; the results are compared with the plain code before anything is timed.

#include "RatioReporter.h"
#include "fusion.h"
#include "fusion_plain.h"
#include "motion.h"
#include "still_bracket.h"

#ifdef VESK_HAS_OPENCV
#include "MertensRival.h"
#endif

#include "parallel_rows.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

using benchmark::State;

std::vector<fusion::Shot> asShots(const std::vector<QImage> &pictures,
                                  const std::vector<QImage> &masks = {})
{
    std::vector<fusion::Shot> shots;
    for (size_t i = 0; i < pictures.size(); ++i)
        shots.push_back({pictures[i], i < masks.size() ? masks[i] : QImage()});
    return shots;
}

void fuseOnce(const std::vector<QImage> &pictures, bool withMotion)
{
    const std::vector<QImage> masks =
        withMotion ? motion::find(pictures).masks : std::vector<QImage>();
    benchmark::DoNotOptimize(fusion::fuse(asShots(pictures, masks)).picture.constBits());
}

template <typename Work>
void add(const std::string &name, int repetitions, Work work)
{
    benchmark::RegisterBenchmark(name.c_str(), work)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->MeasureProcessCPUTime()
        ->Iterations(1)
        ->Repetitions(repetitions);
}

void timeFusion(State &state, const std::vector<QImage> &pictures, bool withMotion, int threads)
{
    parallel::setThreadLimit(threads);
    for (auto _ : state)
        fuseOnce(pictures, withMotion);
    parallel::setThreadLimit(0);
}

void verify()
{
    const auto shots = asShots(stillBracket(3, {403, 301}, true));
    if (fusion::fuse(shots).picture == fusePlain(shots))
        return;
    std::fprintf(stderr, "bench_fusion: the fast code and the plain code differ\n");
    std::exit(1);
}

/// The most memory that the process has had at a time so far, in MiB; forgets it first on request.
double peakMiB(bool forget)
{
    if (forget)
        std::ofstream("/proc/self/clear_refs") << "5";
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word)
        if (word == "VmHWM:")
            break;
    double kiB = 0.0;
    status >> kiB;
    return kiB / 1024;
}

void printMemory(const std::vector<QImage> &pictures)
{
    const double inputs = double(pictures.size()) * double(pictures[0].sizeInBytes()) / 1048576;
    const double output = double(pictures[0].sizeInBytes()) / 1048576;
    const double before = peakMiB(true);
    fuseOnce(pictures, true);
    const double beside = peakMiB(false) - before - output;
    std::printf("memory beside inputs and output: %.2f x the inputs   (goal: at most 1)\n",
                beside / inputs);
}

} // namespace

int main(int count, char **arguments)
{
    benchmark::Initialize(&count, arguments);
    verify();
    const std::vector<QImage> pictures = stillBracket(3, sizeOf(9), true);
    printMemory(pictures);
    add("fusion, one thread", 9, [&](State &s) { timeFusion(s, pictures, false, 1); });
    add("fusion, all cores", 9, [&](State &s) { timeFusion(s, pictures, false, 0); });
    add("fusion and movement, all cores", 9, [&](State &s) { timeFusion(s, pictures, true, 0); });
#ifdef VESK_HAS_OPENCV
    add("MergeMertens, all cores", 3, [&](State &s) {
        MertensRival rival(pictures);
        for (auto _ : s)
            rival.merge();
    });
#endif
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatio("MergeMertens / fusion", "MergeMertens, all cores", "fusion, all cores",
                        "at least 25");
    reporter.printRatio("MergeMertens / fusion and movement", "MergeMertens, all cores",
                        "fusion and movement, all cores", "at least 17");
    return 0;
}
