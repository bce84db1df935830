#include "VeskActionManager.h"

#include <QAction>
#include <QCoreApplication>

namespace {

constexpr int kNoId = -1;

} // namespace

VeskActionManager *VeskActionManager::getInstance(const QString &name)
{
    static QHash<QString, QPointer<VeskActionManager>> instances;
    QPointer<VeskActionManager> &instance = instances[name];
    if (!instance)
        instance = new VeskActionManager(QCoreApplication::instance());
    return instance;
}

VeskActionManager::VeskActionManager(QObject *parent)
    : QObject(parent)
{
    addStandardAction(SaveAction, QStringLiteral("Save"), tr("&Save"), QKeySequence::Save);
    addStandardAction(SaveAsAction, QStringLiteral("Save As"), tr("Save &As…"),
                      QKeySequence::SaveAs);
    addStandardAction(CloseAction, QStringLiteral("Close"), tr("&Close"), QKeySequence::Close);
}

VeskActionManager::~VeskActionManager() = default;

void VeskActionManager::addStandardAction(int id, const QString &name, const QString &text,
                                          QKeySequence::StandardKey shortcut)
{
    auto *action = new QAction(text, this);
    action->setShortcuts(shortcut);
    action->setEnabled(false);
    registerAction(id, name, action);
}

QAction *VeskActionManager::getAction(int id) const
{
    return entries.value(id).action;
}

QAction *VeskActionManager::getActionByName(QString name) const
{
    return entries.value(idOfName(name)).action;
}

void VeskActionManager::setEnabled(int id, bool isEnabled)
{
    if (QAction *action = getAction(id))
        action->setEnabled(isEnabled);
}

void VeskActionManager::registerAction(int id, const QString &name, QAction *action)
{
    forget(id, action);
    forget(idOfName(name), action);
    entries.insert(id, {name, action});
}

void VeskActionManager::forget(int id, const QAction *successor)
{
    const QPointer<QAction> action = entries.take(id).action;
    if (action && action != successor && action->parent() == this)
        delete action;
}

int VeskActionManager::idOfName(const QString &name) const
{
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        if (entry->name == name)
            return entry.key();
    }
    return kNoId;
}
