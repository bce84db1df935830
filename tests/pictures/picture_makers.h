#pragma once

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryDir>

/// Small picture files, and how Qt reads them.
namespace makers {

/// Smooth enough for JPEG, different everywhere, no symmetry.
inline QImage scene(int width, int height, QImage::Format format = QImage::Format_RGB32)
{
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            picture.setPixel(x, y, qRgb(x * 255 / width, y * 255 / height, (x * y) % 97));
    }
    return picture.convertToFormat(format);
}

inline QByteArray encoded(const QImage &picture, const char *format, int compression = -1)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    if (compression >= 0)
        writer.setCompression(compression);
    return writer.write(picture) ? buffer.data() : QByteArray();
}

/// As Qt's own reader gives it.
inline QImage byQt(const QString &path)
{
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    return reader.read();
}

/// A folder for the files of one test.
class Folder
{
public:
    bool isValid() const { return folder.isValid(); }
    QString path(const QString &name) const { return folder.filePath(name); }

    /// Empty when the bytes cannot be written.
    QString save(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        file.remove(); // some file systems write out at once what replaces a file's content
        const bool isSaved =
            file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
        return isSaved ? file.fileName() : QString();
    }

private:
    QTemporaryDir folder;
};

} // namespace makers
