#pragma once

#include <jxl/parallel_runner.h>

/// JPEG XL's library on the project's threads.
namespace jxl_threads {

/// A JxlParallelRunner, whose own state is null. Each thread has a number, and takes the next
/// piece.
JxlParallelRetCode run(void *, void *opaque, JxlParallelRunInit init, JxlParallelRunFunction work,
                       uint32_t begin, uint32_t end);

} // namespace jxl_threads
