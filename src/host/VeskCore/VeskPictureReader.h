#pragma once

#include "veskcore_export.h"

#include <QObject>

class QImage;
class VeskPictureHost;

/// Brings pictures into picture hosts. Any thread, one reader per thread.
class VESKCORE_EXPORT VeskPictureReader : public QObject
{
    Q_OBJECT

public:
    explicit VeskPictureReader(QObject *parent = nullptr);

    /// New picture host with a copy of image (see VeskPictureHost on how it shares pixels), which
    /// the caller may delete afterwards. The caller owns the host. Never null; the host of a null
    /// image has size 0 x 0.
    VeskPictureHost *ReadImageToHost(QImage &image);

    /// New picture host with the picture file at path, decoded upright and by content whatever its
    /// suffix. The caller owns the host. Null when the file is no picture that the toolkit knows,
    /// or has more pixels than VeskGlobalSettings::pixelLimit, which its header tells before memory
    /// is taken; lastError then says why, for the user.
    VeskPictureHost *ReadFileToHost(const QString &path);

    /// Reason of the last ReadFileToHost's failure, empty after a success.
    QString lastError() const { return error; }

private:
    QImage readFile(const QString &path);

    QString error;
};
