#pragma once

#include "Metadata.h"
#include "PictureFormat.h"
#include "ResultMark.h"

#include <QImage>
#include <QStringList>

namespace xmp {

struct Adapted
{
    QByteArray packet;   ///< empty: there is nothing to say
    QStringList leftOut; ///< what could not be kept, in English, for reports
};

/// The XMP packet for a picture that was made from the camera's and is stored upright in a file of
/// that format: orientation, size and colour space are true, nothing tells how the old file stored
/// its pixels, what was appended to it, or how a raw developer is to treat it. What lies at a place
/// in the picture (faces) stays when the size and the orientation did. Files that hold no
/// IPTC data (all but JPEG and TIFF) get those as properties. mark: null for pictures that are no
/// new result; an old mark stays then. roomBytes: kept free of what fits into a file, for
/// properties that are added later. Any thread, reentrant.
Adapted forUprightPicture(const Metadata &camera, const QImage &picture, PictureFormat format,
                          const ResultMark *mark, qsizetype roomBytes = 0);

} // namespace xmp
