#pragma once

#include <functional>

/// Work on the rows of an image, shared out over the processor's cores.
namespace parallel {

/// Calls work(begin, end) for adjoining ranges that together are 0..rows, at the same time on
/// several threads, and returns when all are done. Of exceptions, work may throw std::bad_alloc,
/// which rows() then throws as well, after all are done.
void rows(int rows, const std::function<void(int begin, int end)> &work);

/// The most threads that rows() uses at a time, the caller's own included; 0 means one for each
/// core. For the whole process: for tests and measurements.
void setThreadLimit(int threads);
int threadCount();

} // namespace parallel
