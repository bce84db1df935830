#include "resident_memory.h"

#include <QDir>

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

namespace {

int entriesOf(const QString &folder)
{
    const QDir entries(folder, {}, QDir::NoSort,
                       QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    return entries.exists() ? entries.entryList().size() : -1;
}

} // namespace

int openFileCount()
{
    return entriesOf(QStringLiteral("/proc/self/fd"));
}

int threadCount()
{
    return entriesOf(QStringLiteral("/proc/self/task"));
}
