#pragma once

#include <QString>
#include <QStringList>

/// The pictures that are named on the command line.
namespace command_line {

constexpr qint64 kMegapixel = 1000 * 1000;
constexpr qint64 kLargestPixelLimit = 1000 * 1000 * kMegapixel;

/// Each file once, whatever the ways to write its path. Unless keepOrder, in the way of the "Merge
/// to HDR" tool: ascending by UTF-16 code units.
QStringList inMergeOrder(const QStringList &paths, bool keepOrder);

/// Index of the picture that the path names, or -1.
int indexOfPicture(const QString &path, const QStringList &pictures);

/// A number of megapixels as the words give it; beyond the limits, or no number: nothing, 0.
qint64 pixelLimitOf(const QString &megapixels);

} // namespace command_line
