#include "VeskLayerBase.h"

#include <QtMath>

VeskLayerBase::VeskLayerBase(const QString &layerName)
    : name(layerName)
{
}

VeskLayerBase::~VeskLayerBase() = default;

void VeskLayerBase::setName(const QString &newName)
{
    if (name == newName)
        return;
    name = newName;
    Q_EMIT changed();
}

void VeskLayerBase::setAlpha(float newAlpha)
{
    const float bounded = qIsNaN(newAlpha) ? 1.0F : qBound(0.0F, newAlpha, 1.0F);
    if (alpha == bounded)
        return;
    alpha = bounded;
    Q_EMIT changed();
}

void VeskLayerBase::setVisible(bool newVisible)
{
    if (visible == newVisible)
        return;
    visible = newVisible;
    Q_EMIT changed();
}
