#include "IVeskInsideTool.h"

IVeskInsideTool::IVeskInsideTool(QObject *parent)
    : IVeskTool(parent)
{
}

IVeskInsideTool::~IVeskInsideTool() = default;

void IVeskInsideTool::active(VeskContext *)
{
}
