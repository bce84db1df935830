#pragma once

#include "veskui_export.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>

/// Carries named notifications from tools and documents to the editor's user interface, so that
/// neither needs to know the other. Delivery is direct: notifyUI returns when the connected slots
/// have. GUI thread only.
///
/// A tool calls getInstance and notifyUI.
class VESKUI_EXPORT VeskUIController : public QObject
{
    Q_OBJECT

public:
    /// The one instance, created at the first call. parent owns an instance created by this call;
    /// null leaves it to the application object. Callers never delete it.
    static VeskUIController *getInstance(QObject *parent = nullptr);
    ~VeskUIController() override;

    /// Emits notified. A name that nobody knows is no error.
    void notifyUI(QString name, QList<QVariant> arguments);

Q_SIGNALS:
    void notified(const QString &name, const QList<QVariant> &arguments);

private:
    explicit VeskUIController(QObject *parent);
};
