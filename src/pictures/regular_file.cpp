#include "regular_file.h"

#include <QFile>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

DecodeError errorOfSystem(int code)
{
    switch (code) {
    case ENOENT:
    case ENOTDIR:
        return DecodeError::Missing;
    case EACCES:
    case EPERM:
        return DecodeError::NoPermission;
    case EISDIR:
        return DecodeError::Directory;
    case ENXIO: // a socket, or a device that is not there
        return DecodeError::NotRegularFile;
    default:
        return DecodeError::Unreadable;
    }
}

DecodeError errorOfKind(const struct stat &info)
{
    if (S_ISDIR(info.st_mode))
        return DecodeError::Directory;
    if (!S_ISREG(info.st_mode))
        return DecodeError::NotRegularFile;
    return info.st_size == 0 ? DecodeError::Empty : DecodeError::None;
}

} // namespace

/// Asks what it is before opening, because opening a device can have effects, and again of what was
/// opened, because the name may have changed hands.
DecodeError regular_file::open(const QString &path, int &descriptor)
{
    descriptor = -1;
    const QByteArray name = QFile::encodeName(path);
    struct stat info = {};
    if (::stat(name.constData(), &info) != 0)
        return errorOfSystem(errno);
    const DecodeError kind = errorOfKind(info);
    if (kind != DecodeError::None)
        return kind;
    descriptor = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return errorOfSystem(errno);
    const DecodeError opened =
        ::fstat(descriptor, &info) == 0 ? errorOfKind(info) : errorOfSystem(errno);
    if (opened != DecodeError::None)
        ::close(std::exchange(descriptor, -1));
    return opened;
}
