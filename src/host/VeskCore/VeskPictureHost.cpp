#include "VeskPictureHost.h"

VeskPictureHost::VeskPictureHost(const QImage &image)
    : picture(image)
{
}

int VeskPictureHost::getWidth() const
{
    return picture.width();
}

int VeskPictureHost::getHeight() const
{
    return picture.height();
}
