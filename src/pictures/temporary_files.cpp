#include "temporary_files.h"

#include "file_names.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr QByteArrayView kBegin(".veskhdr-");
constexpr QByteArrayView kEnd(".tmp");
constexpr int kDigits = 16;

bool isTemporaryName(QByteArrayView name)
{
    const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
    if (name.size() != kBegin.size() + kDigits + kEnd.size() || !name.startsWith(kBegin) ||
        !name.endsWith(kEnd))
        return false;
    const QByteArrayView digits = name.sliced(kBegin.size(), kDigits);
    return std::all_of(digits.begin(), digits.end(), isDigit);
}

bool lock(int descriptor)
{
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
}

/// Whether the name still leads to the open file: it may have been removed, and made again.
bool isNameOf(int descriptor, int folder, const char *name)
{
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(descriptor, &opened) == 0 &&
           ::fstatat(folder, name, &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

bool isOurs(int descriptor)
{
    struct stat info = {};
    return ::fstat(descriptor, &info) == 0 && S_ISREG(info.st_mode) && info.st_nlink == 1 &&
           info.st_uid == ::geteuid();
}

/// The lock is held until the file is removed, so that nobody takes the name for its own meanwhile.
void removeIfAbandoned(int folder, const char *name)
{
    const int file = ::openat(folder, name, O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return;
    if (isOurs(file) && lock(file) && isNameOf(file, folder, name))
        ::unlinkat(folder, name, 0);
    ::close(file);
}

} // namespace

QString temporary_files::newName(const QString &folder)
{
    return folder +
           QStringLiteral("/.veskhdr-%1.tmp")
               .arg(QRandomGenerator::system()->generate64(), kDigits, 16, QLatin1Char('0'));
}

int temporary_files::create(const QString &path)
{
    constexpr mode_t kAsTheUserWants = 0666;
    const QByteArray name = file_names::toBytes(path);
    const int file =
        ::open(name.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kAsTheUserWants);
    if (file < 0)
        return -1;
    // Where files cannot be locked nobody sweeps them, either.
    if ((lock(file) || errno != EWOULDBLOCK) && isNameOf(file, AT_FDCWD, name.constData()))
        return file;
    // Another process, sweeping, was faster than the lock.
    ::close(file);
    errno = EEXIST;
    return -1;
}

void temporary_files::sweep(const QString &folder)
{
    const std::unique_ptr<DIR, int (*)(DIR *)> directory(
        ::opendir(file_names::toBytes(folder).constData()), &::closedir);
    if (!directory)
        return;
    const int descriptor = ::dirfd(directory.get());
    while (const dirent *entry = ::readdir(directory.get())) {
        if (isTemporaryName(entry->d_name))
            removeIfAbandoned(descriptor, entry->d_name);
    }
}
