#include "IVeskUIManager.h"

IVeskUIManager::~IVeskUIManager() = default;

QWidget *IVeskUIManager::mainWindow() const
{
    return nullptr;
}

void IVeskUIManager::showStatusMessage(const QString &, int)
{
}
