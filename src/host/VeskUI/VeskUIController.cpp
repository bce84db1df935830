#include "VeskUIController.h"

#include <QCoreApplication>
#include <QPointer>

VeskUIController *VeskUIController::getInstance(QObject *parent)
{
    static QPointer<VeskUIController> instance;
    if (!instance)
        instance = new VeskUIController(parent ? parent : QCoreApplication::instance());
    return instance;
}

VeskUIController::VeskUIController(QObject *parent)
    : QObject(parent)
{
}

VeskUIController::~VeskUIController() = default;

void VeskUIController::notifyUI(QString name, QList<QVariant> arguments)
{
    Q_EMIT notified(name, arguments);
}
