#pragma once

/// What the engine asserts about its callers and about memory. Unlike assert() it is also there in
/// release builds, and the line that it reports stays the same when the code around it moves, so
/// that crash reports of different versions can be compared.
namespace assertion {

/// What the reports of the alignment name, wherever its code stands: the file of the operations
/// that callers know.
constexpr char kAlignmentFile[] = "src/VeskHDR/mtb_alignment.cpp";

/// Writes the standard assertion report (expression, function, file, line) and ends the process.
[[noreturn]] void fail(const char *expression, const char *function, const char *file, int line);

inline void require(bool holds, const char *expression, const char *function, const char *file,
                    int line)
{
    if (!holds)
        fail(expression, function, file, line);
}

} // namespace assertion
