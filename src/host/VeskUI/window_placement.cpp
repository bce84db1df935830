#include "window_placement.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>

QWidget *stayAboveActiveWindow(QWidget &window)
{
    QWidget *active = QApplication::activeWindow();
    if (!active || active == &window)
        return nullptr;
    if (window.windowHandle() && active->windowHandle())
        window.windowHandle()->setTransientParent(active->windowHandle());
    return active;
}
