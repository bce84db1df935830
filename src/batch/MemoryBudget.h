#pragma once

#include <QtGlobal>

/// How much memory may be in use at a time, and how much of it is. One thread at a time.
class MemoryBudget
{
public:
    explicit MemoryBudget(qint64 bytes)
        : bound(bytes)
    {
    }

    qint64 bytes() const { return bound; }

    /// What an estimate comes to after what was measured before.
    qint64 corrected(qint64 estimate) const { return qint64(double(estimate) * factor); }

    /// Takes so much when it is there, or when nothing is taken: what needs more than all must run
    /// alone, or not at all.
    bool take(qint64 wanted);
    void giveBack(qint64 taken)
    {
        inUse -= taken;
        --takers;
    }

    /// Later estimates grow when one was too low; they never shrink.
    void learn(qint64 estimate, qint64 measured);

private:
    qint64 bound;
    qint64 inUse = 0;
    int takers = 0;
    double factor = 1;
};
