#pragma once

#include <cstdio>

/// Drops what anything else writes to standard error while it lives: libpng and LibRaw print
/// there without asking. One at a time, for the whole process.
class LibraryMute
{
public:
    LibraryMute();
    ~LibraryMute();
    LibraryMute(const LibraryMute &) = delete;
    LibraryMute &operator=(const LibraryMute &) = delete;

private:
    int original; ///< descriptor of standard error, or -1
};

namespace library_messages {

/// Keeps what the image libraries print about odd files off standard error: errors reach the user
/// as results of the decoder and the writer. For the whole process; call it once, first in main().
void silence();

/// Standard error for the program's own words, also while LibraryMute is there.
std::FILE *ownErrorStream();

} // namespace library_messages
