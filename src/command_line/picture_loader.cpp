#include "picture_loader.h"

#include "parallel_rows.h"

#include "VeskRaw.h"
#include "VeskRawType.h"

#include <QFileInfo>

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <new>
#include <thread>

namespace {

/// Camera raw files go through the raw converter, all others through the decoder.
DecodedPicture load(const QString &path, qint64 pixelLimit)
{
    if (!QFileInfo(path).isFile() || !VeskRawType::isRaw(path)) {
        DecodedPicture decoded = decodePicture(path, pixelLimit);
        if (decoded.error == DecodeError::TooLarge)
            decoded.reason += QStringLiteral(", --max-megapixels allows more");
        return decoded;
    }
    VeskRaw::Conversion converted = VeskRaw::convert(path);
    if (converted.picture.isNull())
        return {{},
                DecodeError::Damaged,
                QStringLiteral("the camera raw file cannot be converted: ") + converted.error};
    return {std::move(converted.picture), DecodeError::None, {}};
}

DecodedPicture loadGuarded(const QString &path, qint64 pixelLimit)
{
    try {
        return load(path, pixelLimit);
    } catch (const std::bad_alloc &) {
        return {{}, DecodeError::NoMemory, QStringLiteral("not enough memory")};
    }
}

/// The files yet to decode and what became of the others. The mutex guards all counters; each
/// result is written by one worker and read after all have ended.
struct Work
{
    Work(const QStringList &files, qint64 largestPicture)
        : paths(files)
        , pixelLimit(largestPicture)
        , results(size_t(files.size()))
    {
    }

    void decodeAll();

    const QStringList paths;
    const qint64 pixelLimit;
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
        results[size_t(index)] = loadGuarded(paths[index], pixelLimit);
        lock.lock();
        ++done;
        changed.notify_one();
    }
}

} // namespace

std::vector<DecodedPicture> loadPictures(const QStringList &paths, qint64 pixelLimit,
                                         const std::function<void(int)> &onDecoded)
{
    VeskRaw::setPixelLimit(pixelLimit);
    Work work(paths, pixelLimit);
    const int threadCount = std::min(parallel::processorCount(), int(paths.size()));
    std::vector<std::thread> threads;
    try {
        threads.reserve(size_t(threadCount));
        for (int i = 0; i < threadCount; ++i)
            threads.emplace_back(&Work::decodeAll, &work);
    } catch (const std::exception &) {
        // No more threads or memory to be had: those that run do it, or else this one.
        if (threads.empty())
            work.decodeAll();
    }
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
