#pragma once

#include <QColorSpace>
#include <QPointF>

/// Where a colour space has its primaries and its white, as x and y of CIE 1931: what formats for
/// light carry in the place of a profile. A value.
struct Chromaticities
{
    QPointF red;
    QPointF green;
    QPointF blue;
    QPointF white;

    /// The space with these and linear light; one that Qt knows by name where they are as good as
    /// equal. Not valid when they make no sense.
    QColorSpace linearSpace() const;

    /// Those of the space itself for the spaces that Qt knows by name; for others those that its
    /// profile holds, which are adapted to D50. Rec. 709's when the space is not valid.
    static Chromaticities of(const QColorSpace &space);
};
