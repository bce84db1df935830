#pragma once

#include <QEventPoint>
#include <QList>
#include <QPointF>

/// How fingers hold a picture: where, and how far apart.
struct FingerGrip
{
    /// position: which of the points' positions counts, the present or the last one.
    FingerGrip(const QList<QEventPoint> &points, QPointF (QEventPoint::*position)() const);

    QPointF center;
    qreal spread = 0; ///< mean distance from the centre; 0 for one finger
};
