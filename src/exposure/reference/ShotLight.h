#pragma once

#include <QImage>

namespace exposure {

/// How a shot is exposed, by points spread over it. Any thread, reentrant.
struct ShotLight
{
    double brightness = 0.0;   ///< mean, 0..255, clipped points counted as they are
    double visibleShare = 0.0; ///< of points neither nearly black nor clipped to white, 0..1
    double detail = 0.0;       ///< mean of the steps between visible neighbours, beyond noise, in
                               ///< doublings of it, 0..6
    quint32 fingerprint = 0;   ///< of the points' colours, to tell shots of equal light apart
};

/// shot: not null, any format; a transparent point shows nothing.
ShotLight shotLight(const QImage &shot);

} // namespace exposure
