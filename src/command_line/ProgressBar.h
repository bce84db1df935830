#pragma once

#include <QString>

/// One line on standard error that shows how far the work is, when that is a terminal; nothing
/// otherwise. Main thread only.
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
    const bool isVisible;
    QString shown;
};
