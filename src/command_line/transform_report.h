#pragma once

#include "Transform.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRect>
#include <QString>
#include <QStringList>

#include <vector>

/// How pictures were aligned, for the machine and for people. pictures: their paths, in the order
/// of the transforms.
namespace command_line {

/// Each picture's path, kind, 3 x 3 matrix onto the reference (row by row), confidence and
/// residual.
QJsonArray transformsToJson(const QStringList &pictures,
                            const std::vector<registration::Transform> &transforms);

/// x, y, width and height.
QJsonObject areaToJson(QRect area);

/// A line for each picture.
QString transformLines(const QStringList &pictures,
                       const std::vector<registration::Transform> &transforms);

/// Says on standard error which pictures were left where they are, and why.
void warnOfUnaligned(const QStringList &pictures,
                     const std::vector<registration::Transform> &transforms);

} // namespace command_line
