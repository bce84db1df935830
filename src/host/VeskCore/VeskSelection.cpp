#include "VeskSelection.h"

VeskSelection::VeskSelection(QObject *parent, int width, int height)
    : QObject(parent)
    , documentSize(qMax(width, 0), qMax(height, 0))
{
}

void VeskSelection::setRect(const QRect &rect)
{
    const QRect inside = rect.intersected(QRect(QPoint(0, 0), documentSize));
    if (inside == selected || (inside.isEmpty() && selected.isEmpty()))
        return;
    selected = inside.isEmpty() ? QRect() : inside;
    Q_EMIT changed(selected);
}

void VeskSelection::selectAll()
{
    setRect(QRect(QPoint(0, 0), documentSize));
}

void VeskSelection::clear()
{
    setRect(QRect());
}
