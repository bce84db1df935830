#pragma once

#include "fusion_options.h"

#include "parallel_rows.h"

#include <functional>
#include <thread>

namespace fusion {

/// Runs the steps of a fusion and keeps the caller informed: between rows it looks for a cancel,
/// and on the caller's own thread it tells the progress. Borrows the control.
class Watch
{
public:
    explicit Watch(const Control &caller);

    bool isCancelled() const;

    /// What a step makes for each stretch of adjoining rows, on the thread that does them.
    using RowWork = std::function<void(int y)>;
    using MakeRowWork = std::function<RowWork(int begin)>;

    /// Calls the work for each row of a picture of this size, see parallel::rows; the step is this
    /// share of the whole. Does nothing once cancelled.
    void rows(QSize size, double share, const MakeRowWork &makeRowWork);

    /// All steps are done.
    void finish() const { tell(1.0); }

private:
    void rowsOfOneThread(int begin, int end, double share, const MakeRowWork &makeRowWork);
    void tell(double progress) const;

    const Control &control;
    std::thread::id callerThread;
    double done = 0.0; ///< of all steps, 0..1
};

} // namespace fusion
