#include "VeskPictureReader.h"

#include "VeskPictureHost.h"

VeskPictureReader::VeskPictureReader(QObject *parent)
    : QObject(parent)
{
}

VeskPictureReader::~VeskPictureReader() = default;

VeskPictureHost *VeskPictureReader::ReadImageToHost(QImage &image)
{
    return new VeskPictureHost(image);
}
