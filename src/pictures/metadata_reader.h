#pragma once

#include "Metadata.h"

#include <QIODevice>
#include <QString>

/// Where picture files keep what is known of a picture. Any thread, reentrant; nothing is thrown
/// but for lack of memory.
namespace metadata {

/// All metadata of a JPEG, PNG, TIFF, WebP, AVIF, JPEG XL or camera raw file. Where a sidecar file
/// stands beside, its XMP properties win over those in the picture: PICTURE.EXT.xmp beside every
/// file, PICTURE.xmp beside camera raw files. Empty when the file cannot be read, or says nothing.
Metadata read(const QString &path);

/// The sidecar file that read() takes for this picture; empty when there is none.
QString sidecarOf(const QString &path);

/// The XMP packet alone, without a sidecar's. An extended one of a JPEG file is joined to it.
QByteArray xmpIn(QIODevice &file);

/// The IPTC datasets alone, of JPEG and TIFF files.
QByteArray iptcIn(QIODevice &file);

} // namespace metadata
