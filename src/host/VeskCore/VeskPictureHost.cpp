#include "vesk_picture_host.h"

VeskPictureHost::VeskPictureHost(const QImage &image)
    : picture(image)
{
}
