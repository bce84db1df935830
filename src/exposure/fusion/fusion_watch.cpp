#include "fusion_watch.h"

fusion::Watch::Watch(const Control &caller)
    : control(caller)
    , callerThread(std::this_thread::get_id())
{
}

bool fusion::Watch::isCancelled() const
{
    return control.cancelled != nullptr && *control.cancelled;
}

void fusion::Watch::rows(QSize size, double share, const MakeRowWork &makeRowWork)
{
    if (isCancelled())
        return;
    parallel::rows(size,
                   [&](int begin, int end) { rowsOfOneThread(begin, end, share, makeRowWork); });
    done += share;
    tell(done);
}

void fusion::Watch::rowsOfOneThread(int begin, int end, double share,
                                    const MakeRowWork &makeRowWork)
{
    constexpr int kRowsBetweenReports = 64;
    const bool isCaller = std::this_thread::get_id() == callerThread;
    const RowWork work = makeRowWork(begin);
    for (int y = begin; y < end && !isCancelled(); ++y) {
        work(y);
        if (isCaller && (y - begin) % kRowsBetweenReports == kRowsBetweenReports - 1)
            tell(done + share * (y - begin + 1) / (end - begin));
    }
}

void fusion::Watch::tell(double progress) const
{
    if (control.progress && !isCancelled())
        control.progress(progress < 1.0 ? progress : 1.0);
}
