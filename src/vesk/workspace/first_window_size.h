#pragma once

#include <QSize>

namespace workspace {

/// Of a window that has not been placed by the user yet. available: of the screen, in
/// device-independent pixels. The frame that the desktop puts around the window has room, too.
QSize firstWindowSize(const QSize &available);

} // namespace workspace
