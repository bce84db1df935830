#pragma once

#include <QString>

/// Leaves nothing half-written behind when the program is told to stop (Ctrl+C, kill, hang-up).
namespace interrupt {

/// From now on such a signal removes the file named last and then ends the program as the signal
/// does. Writing beyond a file size limit becomes an ordinary error.
void install();

/// The file to remove; none when empty. One file at a time, any thread.
void removeOnInterrupt(const QString &path);

} // namespace interrupt
