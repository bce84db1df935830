#pragma once

#include <QImage>

#include <vector>

/// A textured scene as a tripod takes it: Format_RGB32, each shot two stops brighter than the one
/// before, with a disc of a twelfth of the height that stands elsewhere in each shot when it moves.
std::vector<QImage> stillBracket(int count, QSize size, bool moves);

/// About so many megapixels at 4:3.
QSize sizeOf(double megapixels);
