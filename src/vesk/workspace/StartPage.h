#pragma once

#include <QList>
#include <QWidget>

class QAction;

/// What the window shows while no document is open: how to begin. GUI thread.
class StartPage : public QWidget
{
    Q_OBJECT

public:
    /// A button for each action; the actions are borrowed.
    explicit StartPage(const QList<QAction *> &actions, QWidget *parent = nullptr);
};
