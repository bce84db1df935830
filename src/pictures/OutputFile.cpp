#include "OutputFile.h"

#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A link that leads somewhere stays: the file behind it is the one to write.
QString behindLinks(const QString &path)
{
    const QFileInfo info(path);
    return info.isSymLink() && info.exists() ? info.canonicalFilePath() : path;
}

QString newTemporaryName(const QString &target)
{
    return QFileInfo(target).path() +
           QStringLiteral("/.veskhdr-%1.tmp")
               .arg(QRandomGenerator::system()->generate64(), 16, 16, QLatin1Char('0'));
}

/// Renames unless the new name is taken. Returns 0 or the system's error code.
int renameIfFree(const char *from, const char *to)
{
#if defined(__linux__) && defined(RENAME_NOREPLACE)
    if (::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
#elif defined(__APPLE__)
    if (::renamex_np(from, to, RENAME_EXCL) == 0)
        return 0;
    if (errno != ENOTSUP)
        return errno;
#endif
    // File systems that cannot rename so mostly can link, which never replaces.
    if (::link(from, to) == 0)
        return ::unlink(from) == 0 ? 0 : errno;
    if (errno == EEXIST)
        return errno;
    struct stat info = {};
    if (::lstat(to, &info) == 0)
        return EEXIST;
    return ::rename(from, to) == 0 ? 0 : errno;
}

} // namespace

OutputFile::OutputFile(const QString &path, bool replace, TemporaryNameObserver nameObserver)
    : target(behindLinks(path))
    , mayReplace(replace)
    , observer(std::move(nameObserver))
{
}

OutputFile::~OutputFile()
{
    if (temporaryName.isEmpty())
        return;
    file.close();
    ::unlink(QFile::encodeName(temporaryName).constData());
    if (observer)
        observer({});
}

bool OutputFile::fail(Error error, const QString &reason)
{
    failure = error;
    failureReason = reason;
    return false;
}

bool OutputFile::failBySystem(Error error, int code)
{
    return fail(error, systemReason(code));
}

/// The common reasons in the language of the program; the system tells the others in its own.
QString OutputFile::systemReason(int code)
{
    switch (code) {
    case EACCES:
        return tr("Permission denied");
    case EDQUOT:
        return tr("Disk quota exceeded");
    case ENOSPC:
        return tr("No space left on device");
    case EROFS:
        return tr("Read-only file system");
    default:
        return QString::fromLocal8Bit(std::strerror(code));
    }
}

OutputFile::Error OutputFile::check()
{
    struct stat info = {};
    if (::lstat(QFile::encodeName(target).constData(), &info) != 0) {
        if (!QFileInfo(QFileInfo(target).path()).isDir())
            fail(Error::CannotCreate, tr("there is no such folder"));
        return failure;
    }
    if (S_ISDIR(info.st_mode))
        fail(Error::CannotCreate, tr("is a directory"));
    else if (!S_ISREG(info.st_mode) && !S_ISLNK(info.st_mode))
        fail(Error::CannotCreate, tr("not a regular file"));
    else if (!mayReplace)
        fail(Error::Exists, tr("the file exists already"));
    return failure;
}

bool OutputFile::open()
{
    if (check() != Error::None)
        return false;
    temporaryName = newTemporaryName(target);
    if (observer)
        observer(temporaryName);
    constexpr mode_t kAsTheUserWants = 0666;
    const int descriptor = ::open(QFile::encodeName(temporaryName).constData(),
                                  O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kAsTheUserWants);
    if (descriptor < 0) {
        const int code = errno;
        temporaryName.clear();
        if (observer)
            observer({});
        return failBySystem(Error::CannotCreate, code);
    }
    struct stat replaced = {};
    if (::stat(QFile::encodeName(target).constData(), &replaced) == 0)
        (void)!::fchmod(descriptor, replaced.st_mode & 07777);
    return file.open(descriptor, QIODevice::ReadWrite, QFileDevice::AutoCloseHandle) ||
           fail(Error::CannotCreate, file.errorString());
}

bool OutputFile::publish()
{
    if (!file.flush() || file.error() != QFileDevice::NoError)
        return fail(Error::WriteFailed, file.errorString());
    if (::fsync(file.handle()) != 0)
        return failBySystem(Error::WriteFailed, errno);
    file.close();
    return giveName();
}

bool OutputFile::giveName()
{
    const QByteArray from = QFile::encodeName(temporaryName);
    const QByteArray to = QFile::encodeName(target);
    const int code = !mayReplace ? renameIfFree(from.constData(), to.constData())
                     : ::rename(from.constData(), to.constData()) == 0 ? 0
                                                                       : errno;
    if (code == EEXIST)
        return fail(Error::Exists, tr("the file exists already"));
    if (code != 0)
        return failBySystem(Error::CannotCreate, code);
    temporaryName.clear();
    if (observer)
        observer({});
    return true;
}
