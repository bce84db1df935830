#pragma once

#include "veskui_export.h"

#include <QHash>
#include <QKeySequence>
#include <QObject>
#include <QPointer>
#include <QString>

class QAction;

/// Registry of the editor's actions, by number and by name. Menus and tool bars show the actions
/// themselves; tools enable and trigger them through here. GUI thread only.
///
/// A tool calls getInstance, getActionByName and setEnabled.
class VESKUI_EXPORT VeskActionManager : public QObject
{
    Q_OBJECT

public:
    /// Numbers of the standard actions, which every registry holds from the start under the names
    /// "Save", "Save As" and "Close". They begin disabled, as there is no document yet. The editor
    /// registers its own actions under other numbers, from 0 up.
    enum ActionId { SaveAction = 0, SaveAsAction = 3, CloseAction = 4 };

    /// The registry of that name, created at the first call; the editor's main one has the empty
    /// name. Registries belong to the application object; callers never delete them.
    static VeskActionManager *getInstance(const QString &name);
    ~VeskActionManager() override;

    /// Borrowed; null when there is none, or when it has been deleted.
    QAction *getActionByName(QString name) const;
    QAction *getAction(int id) const;

    /// Enables or disables an action. A number without an action does nothing.
    void setEnabled(int id, bool isEnabled);

    /// Enters an action; it replaces what was registered under id or under name, and a standard
    /// action that it replaces is deleted. The action stays its owner's, who may delete it at any
    /// time.
    void registerAction(int id, const QString &name, QAction *action);

private:
    struct Entry
    {
        QString name;
        QPointer<QAction> action;
    };

    explicit VeskActionManager(QObject *parent);
    void addStandardAction(int id, const QString &name, const QString &text,
                           QKeySequence::StandardKey shortcut);
    void forget(int id, const QAction *successor);
    int idOfName(const QString &name) const; // -1 when there is none

    QHash<int, Entry> entries; // by number
};
