// How long a merge of five shots of 24 megapixels goes on after it has been cancelled, at moments
// spread over the whole job, with registration and the search for movement.

#include "merge_job.h"
#include "still_bracket.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Prints where the job stays silent for longest: there it may hear no cancel either.
void printLongestSilence(const QList<QImage> &shots)
{
    struct Report
    {
        int step = 0;
        double done = 0.0;
    };
    Clock::time_point last = Clock::now();
    Report before;
    Report longestFrom;
    Report longestTo;
    double longest = 0.0;
    exposure::Control control;
    control.progress = [&](exposure::Step step, double done) {
        const Report now{int(step), done};
        if (secondsSince(last) > longest) {
            longest = secondsSince(last);
            longestFrom = before;
            longestTo = now;
        }
        before = now;
        last = Clock::now();
    };
    exposure::merge(shots, {}, control);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    std::printf("longest silence %.0f ms, from %.2f of step %d to %.2f of step %d\n",
                longest * 1000, longestFrom.done, longestFrom.step, longestTo.done, longestTo.step);
}

/// Milliseconds from the cancel, so long after the start, to the end; less than 0 when the job was
/// done before.
double cancelledAfter(const QList<QImage> &shots, double seconds)
{
    std::atomic<bool> cancelled{false};
    Clock::time_point cancelTime;
    std::thread canceller([&] {
        std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
        cancelTime = Clock::now();
        cancelled = true;
    });
    exposure::Control control;
    control.cancelled = &cancelled;
    const exposure::Outcome outcome = exposure::merge(shots, {}, control);
    const auto end = Clock::now();
    canceller.join();
    if (outcome.error != exposure::Error::Cancelled)
        return -1.0;
    return std::chrono::duration<double, std::milli>(end - cancelTime).count();
}

} // namespace

int main(int count, char **arguments)
{
    const int moments = count > 1 ? std::atoi(arguments[1]) : 40;
    const std::vector<QImage> pictures = stillBracket(5, sizeOf(24), true);
    const QList<QImage> shots(pictures.begin(), pictures.end());
    const auto start = Clock::now();
    if (exposure::merge(shots).error != exposure::Error::None)
        return 1;
    const double whole = secondsSince(start);
    printLongestSilence(shots);
    double longest = 0.0;
    double longestAt = 0.0;
    for (int i = 0; i < moments; ++i) {
        const double moment = whole * (i + 0.5) / moments;
        const double wait = cancelledAfter(shots, moment);
        if (wait > longest)
            longestAt = moment;
        longest = std::max(longest, wait);
    }
    std::printf(
        "a merge of %.0f ms, cancelled at %d moments: ends within %.0f ms, longest at %.0f ms"
        "   (goal: at most 100)\n",
        whole * 1000, moments, longest, longestAt * 1000);
    return 0;
}
