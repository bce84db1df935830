#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QSize>
#include <QString>

#include <optional>

/// What the first bytes of a picture file say of its pixels, which are not decoded.
struct PictureHeader
{
    QString format;         ///< "JPEG", "PNG", "TIFF", "WebP" ...
    QSize size;             ///< empty when it is not told
    bool isUpright = false; ///< the size; else as stored, before turning as EXIF says
    int bitsPerSample = 0;  ///< 0 when it is not told
    QByteArray profile;     ///< ICC, perhaps damaged; empty when there is none
    QString colours; ///< name of the profile, or what the file says in its place; may be empty
};

namespace picture {

/// Nothing for files of which no kind is known, camera raw files among them. file: open and
/// seekable. Any thread, one per device.
std::optional<PictureHeader> headerOf(QIODevice &file);

} // namespace picture
