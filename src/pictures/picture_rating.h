#pragma once

#include <QByteArray>
#include <QString>

/// The stars that people give a picture, 0 (none) to 5, as XMP has them (xmp:Rating). Any thread.
namespace rating {

constexpr int kMost = 5;

/// In a packet as metadata::read gives it; 0 when it is damaged or says nothing.
int in(const QByteArray &xmp);

/// Writes them to the picture's sidecar file, which is made when there is none and keeps all else
/// that it says; the picture itself is not touched. Returns why it could not be done, in words;
/// empty on success.
QString write(const QString &picturePath, int stars);

} // namespace rating
