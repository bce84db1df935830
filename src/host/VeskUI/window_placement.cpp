#include "window_placement.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>

namespace {

// Another window of the program may have been hidden a moment ago, with none active since.
QWidget *mainWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window->isVisible() && window->windowType() == Qt::Window)
            return window;
    }
    return nullptr;
}

// Two windows that are above each other would send Qt round in a circle.
bool isAbove(const QWindow *upper, const QWindow *lower)
{
    while (upper && upper != lower)
        upper = upper->transientParent();
    return upper;
}

} // namespace

QWidget *window_placement::stayAboveActive(QWidget &window)
{
    QWidget *active = QApplication::activeWindow();
    if (!active || active == &window)
        active = mainWindow();
    if (!active || !active->windowHandle() || !window.windowHandle() ||
        isAbove(active->windowHandle(), window.windowHandle()))
        return nullptr;
    window.windowHandle()->setTransientParent(active->windowHandle());
    return active;
}
