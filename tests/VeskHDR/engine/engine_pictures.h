#pragma once

#include <QImage>
#include <QList>
#include <QStringList>

#include <cstdint>
#include <memory>
#include <random>
#include <vector>

/// Pictures for the engine's tests. All of it is reproducible: the seeds are the caller's.
namespace pictures {

using Owned = std::vector<std::unique_ptr<QImage>>;

/// The pointers that the engine takes; the owner keeps the pictures.
QList<QImage *> list(const Owned &pictures);

/// Every pixel random, alpha and row padding included.
QImage noise(QSize size, QImage::Format format, std::mt19937 &random);

/// The same as a grey image, with a grey colour table.
QImage greyNoise(QSize size, std::mt19937 &random);

/// A grey image of these levels in one row, with any colour table.
std::unique_ptr<QImage> greyRow(const QList<int> &levels);

/// Blobs of many sizes, as a photograph has them; the same seed gives the same
/// scene. The piece of it that starts at `origin`, times `exposure`, clipped.
QImage scene(QSize size, QPoint origin, double exposure, uint32_t seed);

/// Paths of the real photographs whose names match, sorted; empty when the folder is missing.
QStringList photographs(const QString &nameFilter);

} // namespace pictures
