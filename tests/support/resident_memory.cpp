#include "resident_memory.h"

#if defined(Q_OS_LINUX)
#include <fstream>
#include <unistd.h>
#endif

qint64 residentBytes()
{
#if defined(Q_OS_LINUX) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    qint64 totalPages = 0;
    qint64 residentPages = 0;
    if (std::ifstream("/proc/self/statm") >> totalPages >> residentPages)
        return residentPages * sysconf(_SC_PAGESIZE);
#endif
    return -1;
}
