#include "parallel_rows.h"

#include <QtGlobal>

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <new>
#include <thread>
#include <vector>

#ifdef __linux__
#include <sched.h>
#endif

namespace {

constexpr qint64 kLeastPixelsPerThread = 32768;

std::atomic<int> threadLimit{0};

/// Calls work(0..parts-1), each on a thread of its own, the last on the caller's.
void runParts(int parts, const std::function<void(int)> &work)
{
    std::atomic<bool> outOfMemory{false};
    const auto guardedWork = [&](int part) {
        try {
            work(part);
        } catch (const std::bad_alloc &) {
            outOfMemory = true;
        }
    };
    std::vector<std::thread> threads;
    int part = 0;
    try {
        threads.reserve(static_cast<size_t>(parts));
        for (; part + 1 < parts; ++part)
            threads.emplace_back(guardedWork, part);
    } catch (const std::exception &) {
        // No more threads or memory to be had: what is left is done right here.
    }
    for (; part < parts; ++part)
        guardedWork(part);
    for (std::thread &thread : threads)
        thread.join();
    if (outOfMemory)
        throw std::bad_alloc();
}

} // namespace

int parallel::processorCount()
{
#ifdef __linux__
    cpu_set_t granted;
    if (sched_getaffinity(0, sizeof(granted), &granted) == 0)
        return std::max(1, CPU_COUNT(&granted));
#endif
    return std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

void parallel::setThreadLimit(int threads)
{
    threadLimit = threads;
}

int parallel::threadCount()
{
    const int limit = threadLimit;
    return limit > 0 ? limit : processorCount();
}

void parallel::rows(QSize size, const std::function<void(int, int)> &work)
{
    const int rows = size.height();
    const qint64 worthwhile = qint64(size.width()) * rows / kLeastPixelsPerThread;
    const auto most = static_cast<qint64>(std::clamp(rows, 1, threadCount()));
    const int parts = static_cast<int>(std::clamp<qint64>(worthwhile, 1, most));
    const auto boundary = [=](int part) { return static_cast<int>(qint64(rows) * part / parts); };
    runParts(parts, [&](int part) { work(boundary(part), boundary(part + 1)); });
}

void parallel::each(int count, const std::function<void(int)> &work,
                    const std::function<void(int)> &onDone)
{
    std::atomic<int> next{0};
    std::mutex mutex;
    int done = 0;
    runParts(std::clamp(count, 1, threadCount()), [&](int) {
        for (int i = next++; i < count; i = next++) {
            work(i);
            if (!onDone)
                continue;
            const std::lock_guard lock(mutex);
            onDone(++done);
        }
    });
}
