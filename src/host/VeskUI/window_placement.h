#pragma once

class QWidget;

namespace window_placement {

/// Keeps a window without a parent above the program's active window, or above its main window
/// while none is active, as if that were its parent. To be called while window is being shown.
/// Returns the window that window now stays above (borrowed), null when there is none.
QWidget *stayAboveActive(QWidget &window);

} // namespace window_placement
