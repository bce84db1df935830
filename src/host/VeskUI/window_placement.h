#pragma once

class QWidget;

/// Keeps a window without a parent above the program's active window, as if that were its parent.
/// To be called while window is being shown. Returns the active window (borrowed), null when there
/// is none or when it is window itself.
QWidget *stayAboveActiveWindow(QWidget &window);
