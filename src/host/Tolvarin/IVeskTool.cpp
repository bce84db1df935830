#include "IVeskTool.h"

IVeskTool::IVeskTool(QObject *parent)
    : QObject(parent)
{
}

IVeskTool::~IVeskTool() = default;

bool IVeskTool::event(QEvent *)
{
    return true;
}

QWidget *IVeskTool::getWidget()
{
    return nullptr;
}

void IVeskTool::toolUndo()
{
}

void IVeskTool::toolRedo()
{
}

void IVeskTool::afterUndo()
{
}

bool IVeskTool::isActive()
{
    return activeFlag;
}

bool IVeskTool::eventRegistered(QString name)
{
    return registeredEvents.contains(name);
}

void IVeskTool::processEvent(QString)
{
}

void IVeskTool::registerEvent(const QString &name)
{
    if (!registeredEvents.contains(name))
        registeredEvents.append(name);
}
