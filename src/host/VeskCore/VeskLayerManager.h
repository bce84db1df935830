#pragma once

#include "veskcore_export.h"

#include <QList>
#include <QObject>
#include <QSize>

class VeskLayerBase;

/// The layers of one document, bottom to top, and which of them is current. Owns its layers.
/// GUI thread.
///
/// A tool calls addLayer.
class VESKCORE_EXPORT VeskLayerManager : public QObject
{
    Q_OBJECT

public:
    explicit VeskLayerManager(QObject *parent = nullptr);
    ~VeskLayerManager() override;

    /// Puts layer on top and takes ownership of it. makeCurrent also makes it the current layer;
    /// the first layer always becomes current. A null layer or one that is already here is ignored.
    void addLayer(VeskLayerBase *layer, bool makeCurrent);
    /// Deletes the layer at index; the one below (or the new lowest) becomes current if it was. An
    /// index outside of the list is ignored.
    void removeLayer(int index);

    int count() const { return layers.size(); }
    /// Borrowed; null for an index outside of the list. Index 0 is the lowest layer.
    VeskLayerBase *layerAt(int index) const { return layers.value(index); }

    /// -1 while there is no layer.
    int getCurrentIndex() const { return currentIndex; }
    VeskLayerBase *getCurrentLayer() const { return layerAt(currentIndex); }
    /// An index outside of the list is ignored.
    void setCurrentIndex(int index);

    /// Size in pixels that holds every layer.
    QSize size() const;

Q_SIGNALS:
    /// A layer has come, gone or changed.
    void layersChanged();
    void currentLayerChanged(int index);

private:
    void setCurrent(int index);
    void forgetLayer(QObject *layer);

    QList<VeskLayerBase *> layers;
    int currentIndex = -1;
};
