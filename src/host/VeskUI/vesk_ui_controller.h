#pragma once

#include "veskui_export.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>

/// Carries named notifications from tools to the editor's user interface. GUI thread.
class VESKUI_EXPORT VeskUIController : public QObject
{
    Q_OBJECT

public:
    /// The one controller, created on first call as a child of parent (null: kept for the life of
    /// the process). Created anew after its parent has taken it along.
    static VeskUIController *getInstance(QObject *parent = nullptr);

    /// Sends notified at once. A name that nobody listens for has no effect.
    void notifyUI(QString name, QList<QVariant> arguments);

Q_SIGNALS:
    void notified(const QString &name, const QList<QVariant> &arguments);

private:
    explicit VeskUIController(QObject *parent);
};
