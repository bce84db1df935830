#pragma once

#include <QImage>
#include <QPoint>

#include <vector>

/// A scene with a disc that moves, photographed at several exposures: the same every time.
struct MovingScene
{
    QSize size{320, 240};
    int discRadius = 24;

    /// One shot; exposure: factor on the scene's light, which reaches 8 times what is recorded at
    /// 1; disc: its centre, a negative x for none; noise: standard deviation in levels, about.
    QImage shot(double exposure, QPoint disc, double noise = 0.5, quint32 seed = 1) const;
};
