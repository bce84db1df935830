#include "OutputFile.h"

#include "file_names.h"
#include "temporary_files.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A link that leads somewhere stays: the file behind it is the one to write.
QString behindLinks(const QString &path)
{
    struct stat info = {};
    const QByteArray name = file_names::toBytes(path);
    if (::lstat(name.constData(), &info) != 0 || !S_ISLNK(info.st_mode))
        return path;
    const std::unique_ptr<char, decltype(&std::free)> target(::realpath(name.constData(), nullptr),
                                                             &std::free);
    return target ? file_names::fromBytes(target.get()) : path;
}

QString folderOf(const QString &path)
{
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    return slash < 0 ? QStringLiteral(".") : slash == 0 ? QStringLiteral("/") : path.left(slash);
}

bool isFolder(const QString &path)
{
    struct stat info = {};
    return ::stat(file_names::toBytes(path).constData(), &info) == 0 && S_ISDIR(info.st_mode);
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
    ::unlink(file_names::toBytes(temporaryName).constData());
    file.close();
    tell(Temporary::Gone);
}

void OutputFile::tell(Temporary state) const
{
    if (observer)
        observer(temporaryName, state);
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
    if (::lstat(file_names::toBytes(target).constData(), &info) != 0) {
        if (!isFolder(folderOf(target)))
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

/// Makes the temporary file and returns its descriptor, or -1 with the reason in errno.
int OutputFile::create()
{
    const QString folder = folderOf(target);
    temporary_files::sweep(folder);
    constexpr int kAttempts = 10;
    int descriptor = -1;
    for (int i = 0; i < kAttempts && descriptor < 0; ++i) {
        temporaryName = temporary_files::newName(folder);
        tell(Temporary::Coming);
        descriptor = temporary_files::create(temporaryName);
        const int code = errno;
        tell(descriptor < 0 ? Temporary::Gone : Temporary::There);
        errno = code;
        if (descriptor < 0 && code != EEXIST)
            break;
    }
    return descriptor;
}

bool OutputFile::open()
{
    if (check() != Error::None)
        return false;
    const int descriptor = create();
    if (descriptor < 0) {
        const int code = errno;
        temporaryName.clear();
        return failBySystem(Error::CannotCreate, code);
    }
    struct stat replaced = {};
    if (::stat(file_names::toBytes(target).constData(), &replaced) == 0)
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
    const bool isNamed = giveName(); // locked until then, or it could be swept
    file.close();
    return isNamed;
}

bool OutputFile::giveName()
{
    const QByteArray from = file_names::toBytes(temporaryName);
    const QByteArray to = file_names::toBytes(target);
    const int code = !mayReplace ? renameIfFree(from.constData(), to.constData())
                     : ::rename(from.constData(), to.constData()) == 0 ? 0
                                                                       : errno;
    if (code == EEXIST)
        return fail(Error::Exists, tr("the file exists already"));
    if (code != 0)
        return failBySystem(Error::CannotCreate, code);
    tell(Temporary::Gone);
    temporaryName.clear();
    return true;
}
