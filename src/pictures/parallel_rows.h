#pragma once

#include <QSize>

#include <functional>

/// Work shared out over the processor's cores. Of exceptions, work may throw std::bad_alloc, which
/// the caller then gets after all threads are done.
namespace parallel {

/// Calls work(begin, end) for adjoining ranges that together are all rows of a picture of this
/// size, at the same time on several threads, and returns when all are done. A small picture gets
/// fewer threads: starting one takes longer than it saves.
void rows(QSize size, const std::function<void(int begin, int end)> &work);

/// Calls work(i) for each i in 0..count-1 in the same way, one i after the other on each thread.
/// After each, tells onDone how many are done: on that thread, but never two at a time.
void each(int count, const std::function<void(int)> &work,
          const std::function<void(int)> &onDone = nullptr);

/// Cores that this process may use: fewer than the machine has where a batch system grants a part.
int processorCount();

/// The most threads that rows() and each() use at a time, the caller's own included; 0 means one
/// for each core. For the whole process: for tests and measurements.
void setThreadLimit(int threads);
int threadCount();

} // namespace parallel
