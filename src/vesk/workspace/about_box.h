#pragma once

class QWidget;

namespace workspace {

/// Says what the program is, over window. Modal. GUI thread.
void showAboutBox(QWidget *window);

} // namespace workspace
