#include "MemoryBudget.h"

#include <algorithm>

bool MemoryBudget::take(qint64 wanted)
{
    if (takers > 0 && inUse + wanted > bound)
        return false;
    inUse += wanted;
    ++takers;
    return true;
}

void MemoryBudget::learn(qint64 estimate, qint64 measured)
{
    if (estimate > 0)
        factor = std::max(factor, double(measured) / double(estimate));
}
