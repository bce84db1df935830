#include "picture_loader.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace {

/// The files yet to decode and what became of the others. The mutex guards all counters; each
/// result is written by one worker and read after all have ended.
struct Work
{
    explicit Work(const QStringList &files)
        : paths(files)
        , results(size_t(files.size()))
    {
    }

    void decodeAll();

    const QStringList paths;
    std::vector<DecodedPicture> results;
    std::mutex mutex;
    std::condition_variable changed;
    int next = 0;
    int done = 0;
};

void Work::decodeAll()
{
    std::unique_lock lock(mutex);
    while (next < paths.size()) {
        const int index = next++;
        lock.unlock();
        results[size_t(index)] = decodePicture(paths[index]);
        lock.lock();
        ++done;
        changed.notify_one();
    }
}

} // namespace

std::vector<DecodedPicture> loadPictures(const QStringList &paths,
                                         const std::function<void(int)> &onDecoded)
{
    Work work(paths);
    const int threadCount =
        std::min(std::max(1, static_cast<int>(std::thread::hardware_concurrency())), paths.size());
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i)
        threads.emplace_back(&Work::decodeAll, &work);
    {
        std::unique_lock lock(work.mutex);
        for (int seen = 0; seen < paths.size();) {
            work.changed.wait(lock, [&] { return work.done > seen; });
            seen = work.done;
            onDecoded(seen);
        }
    }
    for (std::thread &thread : threads)
        thread.join();
    return std::move(work.results);
}
