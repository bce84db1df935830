#pragma once

#include <QApplication>

namespace workspace {

/// Names the program, so that its settings are found; before the application object is made.
void nameEditor();

/// Translators of the language that was chosen, or the desktop's, and the icon. application: the
/// program's.
void setUpEditor(QApplication &application);

} // namespace workspace
