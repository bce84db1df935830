#pragma once

#include "veskcore_export.h"

#include <QObject>

class QImage;
class VeskPictureHost;

/// Brings pictures into picture hosts. Any thread, one reader per thread.
///
/// A tool calls the constructor, the destructor and ReadImageToHost.
class VESKCORE_EXPORT VeskPictureReader : public QObject
{
    Q_OBJECT

public:
    explicit VeskPictureReader(QObject *parent = nullptr);
    ~VeskPictureReader() override;

    /// New picture host with a copy of image (see VeskPictureHost on how it shares pixels), which
    /// the caller may delete afterwards. The caller owns the host. Never null; the host of a null
    /// image has size 0 x 0.
    VeskPictureHost *ReadImageToHost(QImage &image);
};
