#pragma once

#include "MergeOptions.h"
#include "picture_set.h"

#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>

#include <vector>

/// What a merge did, for the machine (--json) and for people (--verbose).
struct MergeReport
{
    /// Milliseconds of each step, wall clock.
    struct Times
    {
        qint64 decode = 0;
        qint64 align = 0;
        qint64 ghosts = 0;
        qint64 merge = 0;
        qint64 encode = 0;
        qint64 total = 0;
    };

    MergeMethod method = MergeMethod::Fusion;
    QStringList inputs;      ///< in merge order
    exposure::Report fusion; ///< without transforms unless the method is fusion
    QString ghostMask;       ///< file; empty: none
    QList<TakeFile> takes;
    brush::Strokes strokes;
    picture_set::OneSpace colours; ///< what was converted to the first picture's
    QString outputSpace;           ///< what the output's profile calls itself
    double headroom = 0.0;         ///< stops that the output reaches above white; 0: none
    int bitsPerChannel = 8;        ///< of the output
    QString output;
    QString device; ///< name of the OpenCL device that merged; empty: the processor
    QSize inputSize;
    QRect area; ///< of the inputs that the output shows; all of it unless cropped
    bool isAligned = false;
    std::vector<QPoint> pairShifts;   ///< of picture i + 1 onto picture i; empty unless aligned
    std::vector<QPoint> summedShifts; ///< of picture i + 1 onto picture 0; empty unless aligned
    int largestFindableShift = 0;     ///< in pixels, per direction, of a pair
    Times milliseconds;

    /// True when the true shift of picture i + 1 onto picture i may be larger than what was found.
    bool isAtLimit(size_t i) const;
};

namespace command_line {

/// One JSON object, with a line break after each member.
QString toJson(const MergeReport &report);

/// The times and shifts as plain lines.
QString toLines(const MergeReport &report);

/// One line for a person who waited for it.
QString toSummary(const MergeReport &report);

} // namespace command_line
