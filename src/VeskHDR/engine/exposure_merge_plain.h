#pragma once

#include <QImage>
#include <QList>

/// mergeExposures (exposure_merge.h) written down plainly, one pixel after the other, with a sum
/// for every pixel: the definition that the fast code is held against. It has weights of its own.
QImage *mergeExposuresPlain(const QList<QImage *> &pictures);
