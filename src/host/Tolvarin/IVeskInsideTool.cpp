#include "ivesk_inside_tool.h"

IVeskInsideTool::IVeskInsideTool(QObject *parent)
    : IVeskTool(parent)
{
}

IVeskInsideTool::~IVeskInsideTool() = default;

void IVeskInsideTool::active(VeskContext *)
{
}
