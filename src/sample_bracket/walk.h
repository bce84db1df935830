#pragma once

#include "room_renderer.h"

#include <QImage>
#include <QPoint>
#include <QSize>

#include <vector>

namespace sample {

/// The room while somebody walks through it from the left to the right, behind the table and in
/// front of the window, and the truth about what that changes.
struct Walk
{
    std::vector<RadianceImage> moments; ///< one for each shot, as renderRoom() gives them
    std::vector<QImage> silhouettes;    ///< Format_Grayscale8: 255 where the person is, each moment
    QImage changed; ///< 255 where the person is at any moment, 128 where only the light is another
};

/// size and margin as for renderRoom(). origin: what the top left pixel of the truth shows, in
/// pixels of the moments. Any thread, reentrant; uses all cores inside the call.
Walk renderWalk(QSize size, int margin, int moments, QPoint origin);

} // namespace sample
