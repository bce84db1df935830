#pragma once

#include <QMenu>

/// How light the window is: as the desktop has it, dark and neutral, or light. What is chosen shows
/// at once and is remembered. GUI thread.
class ThemeMenu : public QMenu
{
    Q_OBJECT

public:
    explicit ThemeMenu(QWidget *parent = nullptr);

    /// The theme that is remembered, for the whole program.
    static void applySettings();

private:
    void add(const QString &text, const QString &theme);
};
