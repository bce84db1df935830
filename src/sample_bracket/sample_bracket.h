#pragma once

#include "ExposureData.h"
#include "camera_motion.h"

#include <QImage>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QVector>

namespace sample {

/// Evenly spaced stops around 0: two apart for up to five shots, closer for more.
QVector<double> evenStops(int shots);

struct BracketSettings
{
    QSize size{1800, 1200};
    /// One shot for each, in stops; darkest first, as files are ordered by name.
    QVector<double> stops = evenStops(5);
    /// Where the scene stands in each shot, in pixels right and down of where it stands in the
    /// first. When there are fewer than shots, the hand trembles as the seed says, by no more than
    /// median threshold bitmaps can find at this size.
    QVector<QPoint> offsets;
    /// Hand and Strong take no offsets.
    Motion motion = Motion::Shift;
    quint32 seed = 1;       ///< of sensor noise and trembling
    int minutesLater = 0;   ///< than the first bracket of the day
    bool hasWalker = false; ///< somebody walks through the room from shot to shot
};

struct Shot
{
    QImage picture; ///< QImage::Format_RGB32
    QPoint offset;  ///< see BracketSettings::offsets; moving the picture by its negative aligns it
    Homography toFirst; ///< the true map from this shot's pixel centres to the first one's
    ExposureData exposure;
};

/// Photographs a sunlit landscape through the window of a dim room, hand-held. The same settings
/// give the same pixels. changed: gets what walking changes, as Walk::changed, over the first shot.
/// Any thread, reentrant.
QVector<Shot> photographBracket(const BracketSettings &settings, QImage *changed = nullptr);

/// The shot as a file with its exposure data. format: "jpg" (quality 96) or "png".
/// Empty when the format is another one.
QByteArray encoded(const Shot &shot, const QByteArray &format);

} // namespace sample
