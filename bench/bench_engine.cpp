// The engine beside what it must be measured against: the plain code (the definition), the floor
// (reading all inputs and writing one output, which no merge can avoid) and, where the library is
// installed, OpenCV. Results are compared before anything is timed.

#include "RatioReporter.h"
#include "bench_pictures.h"
#include "exposure_merge.h"
#include "exposure_merge_plain.h"
#include "mtb_alignment_plain.h"
#include "mtb_shifts.h"
#include "parallel_rows.h"

#ifdef VESK_HAS_OPENCV
#include "opencv_rivals.h"
#endif

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

namespace {

using benchmark::State;

/// out[x] = the words of all pictures at x, one against the other.
template <int count>
void combineRow(const QList<QImage *> &pictures, int y, QRgb *__restrict out)
{
    const QRgb *rows[count];
    for (int i = 0; i < count; ++i)
        rows[i] = reinterpret_cast<const QRgb *>(pictures[i]->constScanLine(y));
    const int width = pictures[0]->width();
    for (int x = 0; x < width; ++x) {
        QRgb word = rows[0][x];
        for (int i = 1; i < count; ++i)
            word ^= rows[i][x];
        out[x] = word;
    }
}

/// Reads every word of the pictures and writes every word of an image, computes next to nothing.
template <int count>
void passMemory(const QList<QImage *> &pictures, QImage &out)
{
    uchar *bits = out.bits();
    const qptrdiff bytesPerLine = out.bytesPerLine();
    parallel::rows(out.size(), [&](int begin, int end) {
        for (int y = begin; y < end; ++y)
            combineRow<count>(pictures, y, reinterpret_cast<QRgb *>(bits + y * bytesPerLine));
    });
}

/// The floor for a merge whose result is written into memory that is there already.
template <int count>
void timeFloor(State &state, const BenchBracket &bracket, int threads)
{
    parallel::setThreadLimit(threads);
    QImage out(bracket.list().first()->size(), QImage::Format_RGB32);
    out.fill(0);
    for (auto _ : state)
        passMemory<count>(bracket.list(), out);
}

void alignPlain(QList<QImage *> &pictures)
{
    shift::pictures(pictures, mtb::summedShifts(plain::pairShifts(pictures)), shift::Memory::New);
}

/// As the tool and the command line align pictures that they own.
void alignFast(QList<QImage *> &pictures)
{
    mtb::alignPictures(pictures, false, shift::Memory::Reused);
}

template <typename Merge>
void timeMerge(State &state, const BenchBracket &bracket, int threads, Merge merge)
{
    parallel::setThreadLimit(threads);
    for (auto _ : state)
        delete merge(bracket.list());
}

template <typename Align>
void timeAlign(State &state, const BenchBracket &bracket, int threads, Align align)
{
    parallel::setThreadLimit(threads);
    for (auto _ : state) {
        state.PauseTiming();
        QList<QImage *> pictures = bracket.copies();
        state.ResumeTiming();
        align(pictures);
        state.PauseTiming();
        qDeleteAll(pictures);
        state.ResumeTiming();
    }
}

template <typename Work>
void add(const std::string &name, int repetitions, Work work)
{
    benchmark::RegisterBenchmark(name.c_str(), work)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(1)
        ->Repetitions(repetitions);
}

void verify(const BenchBracket &bracket)
{
    const std::unique_ptr<QImage> fast(mergeExposures(bracket.list()));
    const std::unique_ptr<QImage> plain(plain::mergeExposures(bracket.list()));
    if (*fast != *plain || mtb::pairShifts(bracket.list()) != plain::pairShifts(bracket.list())) {
        std::fprintf(stderr, "bench_engine: the fast code and the plain code differ\n");
        std::exit(1);
    }
    for (const QPoint shift : mtb::pairShifts(bracket.list()))
        std::printf("shift %d, %d  ", shift.x(), shift.y());
    std::printf("\n");
}

template <int count>
void addAll(const std::string &prefix, const BenchBracket &bracket)
{
    add(prefix + "floor, one thread", 15, [&](State &s) { timeFloor<count>(s, bracket, 1); });
    add(prefix + "floor, all cores", 15, [&](State &s) { timeFloor<count>(s, bracket, 0); });
    add(prefix + "merge plain", 3,
        [&](State &s) { timeMerge(s, bracket, 1, plain::mergeExposures); });
    add(prefix + "merge, one thread", 15,
        [&](State &s) { timeMerge(s, bracket, 1, mergeExposures); });
    add(prefix + "merge, all cores", 15,
        [&](State &s) { timeMerge(s, bracket, 0, mergeExposures); });
    add(prefix + "align plain", 3, [&](State &s) { timeAlign(s, bracket, 1, alignPlain); });
    add(prefix + "align, one thread", 9, [&](State &s) { timeAlign(s, bracket, 1, alignFast); });
    add(prefix + "align, all cores", 9, [&](State &s) { timeAlign(s, bracket, 0, alignFast); });
#ifdef VESK_HAS_OPENCV
    add(prefix + "OpenCV AlignMTB, all cores", 5, [&](State &s) {
        opencv::Bracket rival(bracket.list());
        for (auto _ : s)
            rival.alignMtb();
    });
    add(prefix + "OpenCV MergeMertens, all cores", 3, [&](State &s) {
        opencv::Bracket rival(bracket.list());
        for (auto _ : s)
            rival.mergeMertens();
    });
#endif
}

void printRatios(const RatioReporter &reporter, const std::string &prefix)
{
    const auto ratio = [&](const char *title, const char *dividend, const char *divisor,
                           const char *goal) {
        reporter.printRatio(prefix + title, prefix + dividend, prefix + divisor, goal);
    };
    ratio("merge, one thread / floor, one thread", "merge, one thread", "floor, one thread",
          "<= 3.0");
    ratio("merge plain / merge, all cores", "merge plain", "merge, all cores", ">= 55");
    ratio("align plain / align, all cores", "align plain", "align, all cores", ">= 50");
    ratio("OpenCV AlignMTB / align, all cores", "OpenCV AlignMTB, all cores", "align, all cores",
          ">= 10");
    ratio("OpenCV MergeMertens / merge, all cores", "OpenCV MergeMertens, all cores",
          "merge, all cores", "none");
}

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    const BenchBracket three(3, sizeOfMegapixels(9));
    const BenchBracket five(5, sizeOfMegapixels(12));
    verify(three);
    verify(five);
    addAll<3>("3 x 9 MP: ", three);
    addAll<5>("5 x 12 MP: ", five);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\n");
    printRatios(reporter, "3 x 9 MP: ");
    printRatios(reporter, "5 x 12 MP: ");
    return 0;
}
