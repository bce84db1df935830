#pragma once

#include "veskui_export.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>

class QAction;

/// A registry of the editor's actions, by number and by name, so that tools can reach them without
/// knowing the editor. GUI thread.
///
/// The actions belong to whoever registered them; one that is deleted leaves the registry.
class VESKUI_EXPORT VeskActionManager : public QObject
{
    Q_OBJECT

public:
    /// Numbers of the actions that only make sense with a document. Tools enable them by number
    /// once there is one: never renumber.
    enum ActionId { SaveAction = 0, SaveAsAction = 3, CloseAction = 4 };

    /// The registry of that name (empty for the editor's own), created on first call and kept for
    /// the life of the process.
    static VeskActionManager *getInstance(const QString &registryName);

    /// Registers action (borrowed) under number id and under name, in place of what was there.
    void registerAction(int id, const QString &name, QAction *action);

    /// Borrowed; null for an unknown name or number.
    QAction *getActionByName(QString name) const;
    QAction *getAction(int id) const;

    /// Enables or disables the action with that number; an unknown number has no effect.
    void setEnabled(int id, bool enabled);

private:
    VeskActionManager() = default;

    QHash<int, QPointer<QAction>> actionsById;
    QHash<QString, QPointer<QAction>> actionsByName;
};
