#include "jxl_threads.h"

#include "parallel_rows.h"

#include <atomic>
#include <new>

JxlParallelRetCode jxl_threads::run(void *, void *opaque, JxlParallelRunInit init,
                                    JxlParallelRunFunction work, uint32_t begin, uint32_t end)
{
    const int threads = parallel::threadCount();
    if (const JxlParallelRetCode code = init(opaque, static_cast<size_t>(threads)))
        return code;
    std::atomic<uint32_t> next = begin;
    try {
        parallel::each(threads, [&](int thread) {
            for (uint32_t piece = next++; piece < end; piece = next++)
                work(opaque, piece, static_cast<size_t>(thread));
        });
    } catch (const std::bad_alloc &) {
        return JXL_PARALLEL_RET_RUNNER_ERROR;
    }
    return 0;
}
