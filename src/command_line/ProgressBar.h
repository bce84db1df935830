#pragma once

#include <QString>

/// One line on standard error that shows how far the work is, when that is a terminal; nothing
/// otherwise. For programs that ask for it with VESKHDR_PROGRESS=lines, a line "progress 0.42" for
/// each hundredth instead. Main thread only.
class ProgressBar
{
public:
    ProgressBar();
    ~ProgressBar() { clear(); }
    ProgressBar(const ProgressBar &) = delete;
    ProgressBar &operator=(const ProgressBar &) = delete;

    /// fraction: 0..1 of the whole work.
    void show(double fraction, const QString &step);

    /// Takes the line away, so that messages stand alone.
    void clear();

private:
    void tell(double fraction);

    const bool isForPrograms;
    const bool isVisible;
    int told = -1; ///< hundredths
    QString shown;
};
