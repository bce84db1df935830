#pragma once

#include <QMenu>

class QAction;

/// The screen that pictures are shown on: an sRGB one, or as a profile file describes it. What is
/// chosen shows at once and is remembered. GUI thread.
class ScreenColoursMenu : public QMenu
{
    Q_OBJECT

public:
    explicit ScreenColoursMenu(QWidget *window);

private:
    void choose();
    void showChoice();

    QWidget *window;
    QAction *standard;
    QAction *fromFile;
};
