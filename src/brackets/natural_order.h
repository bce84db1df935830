#pragma once

#include <QString>

namespace brackets {

/// True when people list one before other: IMG_9 before IMG_10. Letter case decides last, so that
/// two different texts never count as equal.
bool isBeforeNaturally(const QString &one, const QString &other);

} // namespace brackets
