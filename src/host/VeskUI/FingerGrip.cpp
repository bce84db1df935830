#include "FingerGrip.h"

#include <QLineF>

FingerGrip::FingerGrip(const QList<QEventPoint> &points, QPointF (QEventPoint::*position)() const)
{
    for (const QEventPoint &point : points)
        center += (point.*position)() / points.size();
    for (const QEventPoint &point : points)
        spread += QLineF(center, (point.*position)()).length() / points.size();
}
