#include "VeskPictureReader.h"

#include "VeskGlobalSettings.h"
#include "VeskPictureHost.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace {

/// What the toolkit will take memory for. For a GIF file that is its whole screen, but it tells the
/// size of the first picture; a screen without a side grows with the pictures on it.
QSize sizeInMemory(QFile &file, const QImageReader &reader)
{
    constexpr int kLargestSide = 65535;
    if (reader.format() != "gif")
        return reader.size();
    const QByteArray head = file.peek(10);
    const auto side = [&head](int at) {
        const int length = head.size() < 10 ? 0 : uchar(head[at]) | uchar(head[at + 1]) << 8;
        return length == 0 ? kLargestSide : length;
    };
    return reader.size().expandedTo({side(6), side(8)});
}

} // namespace

VeskPictureReader::VeskPictureReader(QObject *parent)
    : QObject(parent)
{
}

VeskPictureHost *VeskPictureReader::ReadImageToHost(QImage &image)
{
    return new VeskPictureHost(image);
}

VeskPictureHost *VeskPictureReader::ReadFileToHost(const QString &path)
{
    QImage image = readFile(path);
    return image.isNull() ? nullptr : new VeskPictureHost(image);
}

/// Null after keeping the reason.
QImage VeskPictureReader::readFile(const QString &path)
{
    error.clear();
    QFile file(path);
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile()) { // opening a pipe would block
        error = tr("not a regular file");
        return {};
    }
    if (!file.open(QIODevice::ReadOnly)) {
        error = file.errorString();
        return {};
    }
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = sizeInMemory(file, reader);
    if (qint64(size.width()) * size.height() > VeskGlobalSettings::pixelLimit()) {
        error =
            tr("the picture is too large (%1 x %2 pixels)").arg(size.width()).arg(size.height());
        return {};
    }
    QImage image = reader.read();
    if (image.isNull())
        error = reader.errorString();
    return image;
}
