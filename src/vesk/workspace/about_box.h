#pragma once

class QWidget;

/// Says what the program is, over window. Modal. GUI thread.
void showAboutBox(QWidget *window);
