#pragma once

#include "save_dialog.h"

#include <picture_writer.h>

#include <QImage>

namespace document {

/// Writes picture with the metadata of the first of metadataSources that has any. The file appears
/// under its name only when it is complete. Any thread.
WriteResult savePicture(const QImage &picture, const SaveTarget &target,
                        const QStringList &metadataSources);

/// The same on another thread, while a modal busy indicator keeps the user waiting. GUI thread.
WriteResult savePictureBeside(const QImage &picture, const SaveTarget &target,
                              const QStringList &metadataSources);

} // namespace document
