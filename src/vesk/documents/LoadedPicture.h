#pragma once

#include "FileStamp.h"

#include <QImage>
#include <QMetaType>
#include <QString>

#include <atomic>

/// A picture file in memory, or the reason in words why it is not.
struct LoadedPicture
{
    QString path;
    QImage image;            ///< upright, at the file's depth; null on failure
    QString problem;         ///< empty on success; does not name the file
    FileStamp stamp = {};    ///< of the file, from before it was read
    bool hasGainMap = false; ///< the file also says how bright screens show it

    /// The image is the light of a scene, in linear floats, and no picture for a screen.
    bool isLight() const;
};
Q_DECLARE_METATYPE(LoadedPicture)

/// Reads a picture of any kind, with no more pixels than the settings allow. It ends
/// without a picture soon after cancelled has become true. Takes time: any thread but the GUI's.
LoadedPicture loadPicture(const QString &path, const std::atomic<bool> &cancelled);
