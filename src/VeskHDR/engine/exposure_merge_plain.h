#pragma once

#include <QImage>
#include <QList>

namespace plain {

/// mergeExposures (exposure_merge.h) written down plainly, one pixel after the other, with a sum
/// for every pixel: the definition that the fast code is held against. It has weights of its own.
QImage *mergeExposures(const QList<QImage *> &pictures);

} // namespace plain
