#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>

#include <vector>

/// Pictures that are to be merged. Any thread; uses all cores inside the call.
namespace picture_set {

struct Conversion
{
    int picture = 0; ///< its place in the set
    QString from;    ///< what its profile calls itself
};

struct OneSpace
{
    QByteArray profile; ///< of all pictures now; empty: sRGB
    std::vector<Conversion> conversions;
    bool isMemoryShort = false; ///< then the set is of no use
};

/// Brings the pictures to the colours of the first one's profile, each at its own depth, see
/// ColourTransform; those that are of that space already are not touched. Takes the memory of one
/// picture more at most, and none when nobody shares their pixels.
OneSpace bringToFirst(QList<QImage> &pictures);

} // namespace picture_set
