#include "vesk_picture_reader.h"

#include "vesk_picture_host.h"

#include <QImageReader>

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
    error.clear();
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QImage image = reader.read();
    if (image.isNull()) {
        error = reader.errorString();
        return nullptr;
    }
    return new VeskPictureHost(image);
}
