#include "AllocationLimitLift.h"

#include <QImageReader>

#include <mutex>

namespace {

constexpr int kNoLimit = 0;

} // namespace

/// One for the process, as Qt's limit is, however many libraries have this code in them: the
/// exported variables are merged where the program is loaded.
struct Q_DECL_EXPORT VeskAllocationLimitLifts
{
    static inline std::mutex mutex;
    static inline int count = 0;
    static inline int limitBefore = kNoLimit; ///< megabytes
};

AllocationLimitLift::AllocationLimitLift()
{
    using Lifts = VeskAllocationLimitLifts;
    const std::lock_guard lock(Lifts::mutex);
    if (Lifts::count++ == 0)
        Lifts::limitBefore = QImageReader::allocationLimit();
    QImageReader::setAllocationLimit(kNoLimit);
}

AllocationLimitLift::~AllocationLimitLift()
{
    using Lifts = VeskAllocationLimitLifts;
    const std::lock_guard lock(Lifts::mutex);
    if (--Lifts::count == 0 && QImageReader::allocationLimit() == kNoLimit)
        QImageReader::setAllocationLimit(Lifts::limitBefore);
}
