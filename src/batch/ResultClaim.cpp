#include "ResultClaim.h"

#include "file_names.h"
#include "temporary_files.h"

#include <QFileInfo>

#include <cerrno>

#include <sys/file.h>
#include <unistd.h>

namespace {

/// FNV-1a with 64 bits: the same in every process.
quint64 hashOf(const QByteArray &bytes)
{
    quint64 hash = 14695981039346656037U;
    for (const char byte : bytes)
        hash = (hash ^ uchar(byte)) * 1099511628211U;
    return hash;
}

/// A name as temporary files have, so that it is swept with them.
QString claimFor(const QString &result)
{
    const QFileInfo info(result);
    return info.path() +
           QStringLiteral("/.veskhdr-%1.tmp")
               .arg(hashOf(file_names::toBytes(info.fileName())), 16, 16, QLatin1Char('0'));
}

/// Makes the file; what a dead process left there is swept first.
int createClaim(const QString &path)
{
    int descriptor = temporary_files::create(path);
    if (descriptor >= 0 || errno != EEXIST)
        return descriptor;
    temporary_files::sweep(QFileInfo(path).path());
    return temporary_files::create(path);
}

} // namespace

bool ResultClaim::take(const QString &result)
{
    release();
    const QString name = claimFor(result);
    const int made = createClaim(name);
    if (made < 0)
        return errno != EEXIST; // what is wrong with the folder the merge will tell
    if (::flock(made, LOCK_EX | LOCK_NB) != 0) {
        ::unlink(file_names::toBytes(name).constData());
        ::close(made);
        return true;
    }
    path = name;
    descriptor = made;
    return true;
}

/// Removed while it is still locked, so that nobody finds it abandoned.
void ResultClaim::release()
{
    if (descriptor < 0)
        return;
    ::unlink(file_names::toBytes(path).constData());
    ::close(descriptor);
    descriptor = -1;
}
