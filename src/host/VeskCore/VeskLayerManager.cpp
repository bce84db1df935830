#include "VeskLayerManager.h"

#include "VeskLayerBase.h"

VeskLayerManager::VeskLayerManager(QObject *parent)
    : QObject(parent)
{
}

VeskLayerManager::~VeskLayerManager()
{
    // The layers go with their parent; none of them may report to a half-destroyed manager.
    for (VeskLayerBase *layer : qAsConst(layers))
        layer->disconnect(this);
}

void VeskLayerManager::addLayer(VeskLayerBase *layer, bool makeCurrent)
{
    if (!layer || layers.contains(layer))
        return;
    layer->setParent(this);
    connect(layer, &VeskLayerBase::changed, this, &VeskLayerManager::layersChanged);
    connect(layer, &QObject::destroyed, this, &VeskLayerManager::forgetLayer);
    layers.append(layer);
    Q_EMIT layersChanged();
    if (makeCurrent || layers.size() == 1)
        setCurrent(layers.size() - 1);
}

void VeskLayerManager::removeLayer(int index)
{
    delete layerAt(index); // leaves the list through forgetLayer
}

void VeskLayerManager::setCurrentIndex(int index)
{
    if (index >= 0 && index < layers.size())
        setCurrent(index);
}

QSize VeskLayerManager::size() const
{
    QSize whole(0, 0);
    for (const VeskLayerBase *layer : layers)
        whole = whole.expandedTo(layer->picture().size());
    return whole;
}

void VeskLayerManager::setCurrent(int index)
{
    if (currentIndex == index)
        return;
    currentIndex = index;
    Q_EMIT currentLayerChanged(index);
}

void VeskLayerManager::forgetLayer(QObject *layer)
{
    int index = 0;
    while (index < layers.size() && static_cast<QObject *>(layers.at(index)) != layer)
        ++index;
    if (index == layers.size())
        return;
    layers.removeAt(index);
    // Current stays on the same layer, or moves to the one below the layer that has gone.
    const bool moves = index <= currentIndex;
    if (moves)
        currentIndex = layers.isEmpty() ? -1 : qMax(0, currentIndex - 1);
    Q_EMIT layersChanged();
    if (moves)
        Q_EMIT currentLayerChanged(currentIndex);
}
