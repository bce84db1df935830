#include "VeskPictureHost.h"

VeskPictureHost::VeskPictureHost(const QImage &image)
    : picture(image)
{
}
