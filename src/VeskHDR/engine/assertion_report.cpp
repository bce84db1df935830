#include "assertion_report.h"

// The report is wanted in release builds too.
#undef NDEBUG
#include <cassert>
#include <cstdio>
#include <cstdlib>

void assertion::fail(const char *expression, const char *function, const char *file, int line)
{
#if defined(__GLIBC__)
    __assert_fail(expression, file, static_cast<unsigned>(line), function);
#elif defined(__APPLE__)
    __assert_rtn(function, file, line, expression);
#else
    std::fprintf(stderr, "%s:%d: %s: Assertion `%s' failed.\n", file, line, function, expression);
    std::abort();
#endif
}
