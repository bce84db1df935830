#pragma once

#include <OutputFile.h>

/// Leaves nothing half-written behind when the program is told to stop (Ctrl+C, kill, hang-up),
/// however often it is told so.
namespace interrupt {

/// From now on such a signal removes the file named last and then ends the program as the signal
/// does. Writing beyond a file size limit becomes an ordinary error.
void install();

/// Names the file to remove, see OutputFile::TemporaryNameObserver. One file at a time; Coming and
/// the call after it on the same thread, which waits for its end once a signal has arrived.
void removeOnInterrupt(const QString &path, OutputFile::Temporary state);

} // namespace interrupt
