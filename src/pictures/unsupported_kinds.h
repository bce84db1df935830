#pragma once

#include <QIODevice>
#include <QString>

namespace picture {

/// The name of a kind of picture that is well known, but that this build does not read: HEIC, AVIF,
/// JPEG 2000, JPEG XL, PSD and the like. Empty for all other files, pictures included. Goes by
/// content. file: open and seekable; is left at its start. Any thread.
QString unsupportedKind(QIODevice &file);

} // namespace picture
