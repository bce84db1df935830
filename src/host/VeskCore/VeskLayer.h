#pragma once

#include "VeskLayerBase.h"

#include <memory>

class VeskPictureHost;

/// A layer that shows the picture of a picture host. GUI thread.
///
/// A tool calls the constructor and setVeskPictureHost.
class VESKCORE_EXPORT VeskLayer : public VeskLayerBase
{
    Q_OBJECT

public:
    explicit VeskLayer(const QString &name);
    ~VeskLayer() override;

    /// The layer takes ownership of host (null for none) and deletes the one it held before.
    void setVeskPictureHost(VeskPictureHost *host);
    /// Borrowed; null when the layer has none. Valid until it is replaced.
    VeskPictureHost *getVeskPictureHost() const { return host.get(); }

    QImage picture() const override;

private:
    std::unique_ptr<VeskPictureHost> host;
};
