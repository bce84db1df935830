#pragma once

#include "save_dialog.h"

#include <picture_writer.h>

#include <QImage>
#include <QStringList>

#include <functional>
#include <optional>

namespace document {

/// What goes into a picture's file beside the picture.
struct SavedMetadata
{
    QStringList sources;            ///< files; the first one that has metadata gives them
    std::optional<ResultMark> mark; ///< of a merged picture
    GainMap gainMap = {};           ///< of a JPEG file for bright screens, too
};

/// Writes picture with its metadata. The file appears under its name only when it is complete. Any
/// thread.
WriteResult savePicture(const QImage &picture, const SaveTarget &target,
                        const SavedMetadata &metadata);

/// Does it on another thread, while a modal busy indicator keeps the user waiting. GUI thread.
void workBeside(const std::function<void()> &work);

/// The same on another thread, while a modal busy indicator keeps the user waiting. GUI thread.
WriteResult savePictureBeside(const QImage &picture, const SaveTarget &target,
                              const SavedMetadata &metadata);

} // namespace document
