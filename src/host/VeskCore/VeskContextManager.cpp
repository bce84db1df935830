#include "VeskContextManager.h"

#include "VeskContext.h"

VeskContextManager *VeskContextManager::getInstance()
{
    static VeskContextManager *const manager = new VeskContextManager;
    return manager;
}

void VeskContextManager::addContext(VeskContext *context)
{
    if (!context || contexts.contains(context))
        return;
    context->setParent(this);
    connect(context, &QObject::destroyed, this, &VeskContextManager::takeOut);
    contexts.append(context);
    Q_EMIT contextAdded(context);
}

void VeskContextManager::removeContext(VeskContext *context)
{
    if (!context || !contexts.contains(context))
        return;
    context->setParent(nullptr);
    disconnect(context, &QObject::destroyed, this, &VeskContextManager::takeOut);
    takeOut(context);
    Q_EMIT contextRemoved(context);
}

int VeskContextManager::indexOfContext(VeskContext *context) const
{
    return static_cast<int>(contexts.indexOf(context));
}

VeskContext *VeskContextManager::getCurrentContext() const
{
    return current;
}

void VeskContextManager::setCurrentContext(int index)
{
    if (index >= -1 && index < contexts.size())
        makeCurrent(contexts.value(index));
}

void VeskContextManager::takeOut(QObject *context)
{
    // May be under destruction already: compared, never used.
    int index = 0;
    while (index < contexts.size() && static_cast<QObject *>(contexts.at(index)) != context)
        ++index;
    if (index == contexts.size())
        return;
    const bool wasCurrent = contexts.takeAt(index) == current;
    if (wasCurrent)
        makeCurrent(contexts.value(qMin(index, contexts.size() - 1)));
}

void VeskContextManager::makeCurrent(VeskContext *context)
{
    if (current == context)
        return;
    current = context;
    Q_EMIT currentContextChanged(current);
}
