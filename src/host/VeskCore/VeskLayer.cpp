#include "VeskLayer.h"

#include "VeskPictureHost.h"

VeskLayer::VeskLayer(const QString &layerName)
    : VeskLayerBase(layerName)
{
}

VeskLayer::~VeskLayer() = default;

void VeskLayer::setVeskPictureHost(VeskPictureHost *newHost)
{
    if (newHost == host.get())
        return;
    host.reset(newHost);
    Q_EMIT changed();
}

QImage VeskLayer::picture() const
{
    return host ? host->getImage() : QImage();
}
