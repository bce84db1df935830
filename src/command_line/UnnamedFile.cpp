#include "UnnamedFile.h"

#include <QDir>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr size_t kPieceBytes = 1 << 16;

QString systemReason()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

ssize_t readPiece(int descriptor, std::array<char, kPieceBytes> &piece)
{
    ssize_t count = 0;
    do
        count = ::read(descriptor, piece.data(), piece.size());
    while (count < 0 && errno == EINTR);
    return count;
}

bool writePiece(int descriptor, const char *bytes, qint64 length)
{
    while (length > 0) {
        const ssize_t count = ::write(descriptor, bytes, size_t(length));
        if (count < 0 && errno != EINTR)
            return false;
        bytes += std::max<ssize_t>(count, 0);
        length -= std::max<ssize_t>(count, 0);
    }
    return true;
}

} // namespace

bool UnnamedFile::fail(const QString &why)
{
    failure = why;
    return false;
}

bool UnnamedFile::open()
{
    QByteArray name = QFile::encodeName(QDir::tempPath() + QStringLiteral("/veskhdr-XXXXXX"));
    const int descriptor = ::mkostemp(name.data(), O_CLOEXEC);
    if (descriptor < 0)
        return fail(systemReason());
    ::unlink(name.constData());
    return file.open(descriptor, QIODevice::ReadWrite, QFileDevice::AutoCloseHandle) ||
           fail(file.errorString());
}

bool UnnamedFile::fillFrom(int descriptor, qint64 mostBytes)
{
    std::array<char, kPieceBytes> piece;
    qint64 total = 0;
    while (const ssize_t count = readPiece(descriptor, piece)) {
        total += count;
        if (count < 0)
            return fail(systemReason());
        if (total > mostBytes)
            return fail(QStringLiteral("more bytes than a picture within the limit has"));
        if (!writePiece(file.handle(), piece.data(), count))
            return fail(systemReason());
    }
    return true;
}

bool UnnamedFile::copyTo(int descriptor)
{
    std::array<char, kPieceBytes> piece;
    file.flush();
    if (::lseek(file.handle(), 0, SEEK_SET) < 0)
        return fail(systemReason());
    while (const ssize_t count = readPiece(file.handle(), piece)) {
        if (count < 0 || !writePiece(descriptor, piece.data(), count))
            return fail(systemReason());
    }
    return true;
}

QString UnnamedFile::path() const
{
    return QStringLiteral("/proc/%1/fd/%2").arg(::getpid()).arg(file.handle());
}
