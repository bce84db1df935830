#pragma once

#include "ExifTags.h"

#include <QByteArray>

/// What a picture file says of its picture, beside size and colours: the camera's data, and what
/// people and programs noted. A value.
struct Metadata
{
    ExifTags exif;
    QByteArray xmp;  ///< one packet as it stood in the file, perhaps damaged; or empty
    QByteArray iptc; ///< datasets (see iptc_data.h), perhaps damaged; or empty

    bool isEmpty() const { return exif.isEmpty() && xmp.isEmpty() && iptc.isEmpty(); }
};
