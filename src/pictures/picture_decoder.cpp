#include "picture_decoder.h"

#include "jpeg_decoder.h"
#include "picture_completeness.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <memory>
#include <new>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct PictureDecoder
{
    Q_DECLARE_TR_FUNCTIONS(PictureDecoder)
};

QString reasonFor(DecodeError error, QSize size)
{
    switch (error) {
    case DecodeError::None:
        return {};
    case DecodeError::Missing:
        return PictureDecoder::tr("no such file");
    case DecodeError::Directory:
        return PictureDecoder::tr("is a directory");
    case DecodeError::NotRegularFile:
        return PictureDecoder::tr("not a regular file");
    case DecodeError::NoPermission:
        return PictureDecoder::tr("no permission to read it");
    case DecodeError::Unreadable:
        return PictureDecoder::tr("cannot be read");
    case DecodeError::Empty:
        return PictureDecoder::tr("the file is empty");
    case DecodeError::NotAPicture:
        return PictureDecoder::tr("not a picture");
    case DecodeError::Damaged:
        return PictureDecoder::tr("the picture is truncated or damaged");
    case DecodeError::TooLarge:
        return PictureDecoder::tr("the picture is too large (%1 x %2 pixels)")
            .arg(size.width())
            .arg(size.height());
    case DecodeError::NoMemory:
        return PictureDecoder::tr("not enough memory for %1 x %2 pixels")
            .arg(size.width())
            .arg(size.height());
    }
    return {};
}

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

/// Opens only regular files: asked before opening, because opening a device can have effects, and
/// again on what was opened, because the name may have changed hands.
DecodeError openRegular(const QString &path, int &descriptor)
{
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
    return ::fstat(descriptor, &info) == 0 ? errorOfKind(info) : errorOfSystem(errno);
}

bool isJpeg(int descriptor)
{
    std::array<unsigned char, 3> start = {};
    return ::pread(descriptor, start.data(), start.size(), 0) == ssize_t(start.size()) &&
           start[0] == 0xFF && start[1] == 0xD8 && start[2] == 0xFF;
}

/// Takes the descriptor over.
DecodedPicture decodeJpeg(int descriptor, qint64 pixelLimit)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE *)> file(::fdopen(descriptor, "rb"),
                                                                &std::fclose);
    if (!file) {
        ::close(descriptor);
        return decodeFailure(DecodeError::Unreadable);
    }
    DecodedPicture decoded = jpeg::decode(file.get(), pixelLimit);
    return std::ferror(file.get()) ? decodeFailure(DecodeError::Unreadable) : decoded;
}

/// Drawings may hold text, and fonts end the process when no graphical application is there.
bool canDraw(const QByteArray &format)
{
    const bool isDrawing = format == "svg" || format == "svgz";
    return !isDrawing || qobject_cast<QGuiApplication *>(QCoreApplication::instance());
}

/// A damaged file can hold indexes beyond its colour table. They become transparent black.
void completeColourTable(QImage &picture)
{
    if (picture.format() == QImage::Format_Mono || picture.format() == QImage::Format_MonoLSB) {
        if (picture.colorCount() < 2)
            picture.setColorCount(2);
        return;
    }
    if (picture.format() != QImage::Format_Indexed8 || picture.colorCount() >= 256)
        return;
    uchar largest = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const uchar *row = picture.constScanLine(y);
        largest = std::max(largest, *std::max_element(row, row + picture.width()));
    }
    if (largest >= picture.colorCount())
        picture.setColorCount(largest + 1);
}

/// Where memory runs out while the toolkit loads its decoders, it keeps a lock for good and the
/// next reader would wait for ever. So they are loaded once, ahead; false when that failed.
bool areDecodersLoaded()
{
    static const bool areLoaded = [] {
        try {
            QBuffer nothing;
            nothing.open(QIODevice::ReadOnly);
            QImageReader reader(&nothing);
            reader.setDecideFormatFromContent(true);
            reader.format();
            return true;
        } catch (const std::bad_alloc &) {
            return false;
        }
    }();
    return areLoaded;
}

qint64 pixelsOf(QSize size)
{
    return qint64(size.width()) * size.height();
}

/// The toolkit takes memory for a GIF file's whole screen, but tells the size of its first picture.
/// A screen without a side grows with the pictures on it.
QSize screenOfGif(QFile &file)
{
    constexpr int kLargestSide = 65535;
    const QByteArray head = file.peek(10);
    const auto side = [&head](int at) {
        const int length = head.size() < 10 ? 0 : uchar(head[at]) | uchar(head[at + 1]) << 8;
        return length == 0 ? kLargestSide : length;
    };
    return {side(6), side(8)};
}

/// Size of what the reader will take memory for; empty when the file does not tell.
QSize sizeInMemory(QFile &file, const QImageReader &reader)
{
    const QSize screen = reader.format() == "gif" ? screenOfGif(file) : QSize();
    const QSize size = reader.size();
    return size.isEmpty() ? QSize() : size.expandedTo(screen);
}

/// Why the toolkit gave no picture of this size: it does not tell.
DecodedPicture failedReading(QSize size)
{
    const bool isMemoryShort = QImage(size, QImage::Format_RGBA64).isNull();
    return decodeFailure(isMemoryShort ? DecodeError::NoMemory : DecodeError::Damaged, size);
}

/// Takes the descriptor over.
DecodedPicture decodeByToolkit(int descriptor, qint64 pixelLimit)
{
    QFile file;
    if (!file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        return decodeFailure(DecodeError::Unreadable);
    }
    if (!areDecodersLoaded())
        return {{}, DecodeError::NoMemory, PictureDecoder::tr("not enough memory")};
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QByteArray format = reader.format();
    if (format.isEmpty() || !canDraw(format))
        return decodeFailure(DecodeError::NotAPicture);
    if (!isComplete(file, format))
        return decodeFailure(DecodeError::Damaged);
    const QSize size = sizeInMemory(file, reader);
    if (size.isEmpty())
        return decodeFailure(DecodeError::Damaged);
    if (pixelsOf(size) > pixelLimit)
        return decodeFailure(DecodeError::TooLarge, size);

    DecodedPicture decoded;
    decoded.image = reader.read();
    if (decoded.image.isNull())
        return failedReading(size);
    if (pixelsOf(decoded.image.size()) > pixelLimit)
        return decodeFailure(DecodeError::TooLarge, decoded.image.size());
    completeColourTable(decoded.image);
    return decoded;
}

DecodedPicture decode(const QString &path, qint64 pixelLimit)
{
    int descriptor = -1;
    const DecodeError error = openRegular(path, descriptor);
    if (error != DecodeError::None) {
        if (descriptor >= 0)
            ::close(descriptor);
        return decodeFailure(error);
    }
    return isJpeg(descriptor) ? decodeJpeg(descriptor, pixelLimit)
                              : decodeByToolkit(descriptor, pixelLimit);
}

} // namespace

DecodedPicture decodePicture(const QString &path, qint64 pixelLimit)
{
    try {
        return decode(path, pixelLimit);
    } catch (const std::bad_alloc &) {
        return decodeFailure(DecodeError::NoMemory);
    }
}

DecodedPicture decodeFailure(DecodeError error, QSize size)
{
    return {{}, error, reasonFor(error, size)};
}
