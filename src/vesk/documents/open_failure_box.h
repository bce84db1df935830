#pragma once

#include "LoadedPicture.h"

#include <QList>

class QWidget;

namespace document {

/// Tells the user which files could not be opened, and why, in one box that blocks nothing and
/// deletes itself when it is closed. failures: at least one. GUI thread.
void showOpenFailures(const QList<LoadedPicture> &failures, QWidget *window);

} // namespace document
