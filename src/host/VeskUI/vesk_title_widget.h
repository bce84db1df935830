#pragma once

#include "veskui_export.h"

#include <QWidget>

class QLabel;
class QToolButton;

/// Title bar of the editor's own frames: the window title and the buttons chosen by the flag.
/// Dragging it moves its window. GUI thread.
class VESKUI_EXPORT VeskTitleWidget : public QWidget
{
    Q_OBJECT

public:
    /// Buttons beside the title; a close button is always there. May be combined.
    enum TitleButtonFlag { CloseButtonOnly = 0x0, MinimizeButton = 0x1, MaximizeButton = 0x2 };

    VeskTitleWidget(TitleButtonFlag flag, QWidget *parent = nullptr);

    QString title() const;
    void setTitle(const QString &title);

Q_SIGNALS:
    void minimizeRequested();
    void maximizeRequested();
    void closeRequested();
};
