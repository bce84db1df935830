#pragma once

#include "veskcore_export.h"

#include <QImage>

/// Holds the pixels of one layer. GUI thread, or one thread at a time.
///
/// A tool calls getWidth and getHeight.
class VESKCORE_EXPORT VeskPictureHost
{
public:
    /// Shares image with the caller as QImage does: no pixels are copied until one of the two
    /// changes. An image over memory of the caller must be detached by the caller first.
    explicit VeskPictureHost(const QImage &image = {});

    /// Size in pixels, 0 for a null picture.
    int getWidth() const;
    int getHeight() const;

    /// The picture in the format in which it came; null when there is none.
    const QImage &getImage() const { return picture; }

private:
    QImage picture;
};
