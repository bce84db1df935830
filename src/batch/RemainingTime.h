#pragma once

#include <QString>

#include <optional>

/// How long the rest of the work takes, judged by what is done. A value.
class RemainingTime
{
public:
    /// Work that is to come, in any unit that goes with time.
    void expect(double work) { left += work; }
    /// Some of it is done.
    void add(double work)
    {
        left -= work;
        done += work;
    }
    /// Some of it turned out to need nothing.
    void drop(double work) { left -= work; }

    /// Nothing before there is something to judge by. elapsed: since the work began, with all that
    /// ran side by side.
    std::optional<qint64> milliseconds(qint64 elapsed) const;

    /// For people: "40 s", "3 min", "2 h 5 min".
    static QString text(qint64 milliseconds);

private:
    double left = 0;
    double done = 0;
};
