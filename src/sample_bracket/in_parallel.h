#pragma once

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

namespace sample {

/// Calls work(i) once for every i in 0..count-1, on so many threads (0: one per core), and returns
/// when all are done. The calls must not depend on each other.
template <typename Work>
void inParallel(int count, int threads, const Work &work)
{
    if (threads <= 0)
        threads = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
    std::atomic<int> next{0};
    const auto run = [&] {
        for (int i = next++; i < count; i = next++)
            work(i);
    };
    std::vector<std::thread> helpers;
    for (int i = 1; i < std::min(threads, count); ++i)
        helpers.emplace_back(run);
    run();
    for (std::thread &helper : helpers)
        helper.join();
}

} // namespace sample
