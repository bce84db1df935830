#include "parallel_rows.h"

#include <QtGlobal>

#include <algorithm>
#include <atomic>
#include <exception>
#include <new>
#include <thread>
#include <vector>

namespace {

// Below this a thread costs more than it saves.
constexpr int kLeastRowsPerThread = 16;

std::atomic<int> threadLimit{0};

} // namespace

void parallel::setThreadLimit(int threads)
{
    threadLimit = threads;
}

int parallel::threadCount()
{
    const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    const int limit = threadLimit;
    return limit > 0 ? limit : cores;
}

void parallel::rows(int rows, const std::function<void(int, int)> &work)
{
    const int parts = std::clamp(rows / kLeastRowsPerThread, 1, threadCount());
    const auto boundary = [=](int part) { return static_cast<int>(qint64(rows) * part / parts); };
    std::atomic<bool> outOfMemory{false};
    const auto guardedWork = [&](int begin, int end) {
        try {
            work(begin, end);
        } catch (const std::bad_alloc &) {
            outOfMemory = true;
        }
    };
    std::vector<std::thread> threads;
    int part = 0;
    try {
        threads.reserve(static_cast<size_t>(parts));
        for (; part + 1 < parts; ++part)
            threads.emplace_back(guardedWork, boundary(part), boundary(part + 1));
    } catch (const std::exception &) {
        // No more threads or memory to be had: what is left is done right here.
    }
    guardedWork(boundary(part), rows);
    for (std::thread &thread : threads)
        thread.join();
    if (outOfMemory)
        throw std::bad_alloc();
}
