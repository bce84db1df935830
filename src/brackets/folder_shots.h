#pragma once

#include "ShotCache.h"

#include <QStringList>

#include <atomic>
#include <functional>
#include <vector>

struct FolderRules
{
    bool preferRaw = false;     ///< of a picture that was recorded both raw and developed
    ShotCache *cache = nullptr; ///< of what was read before; borrowed, may be null
    const std::atomic<bool> *cancelled = nullptr; ///< true ends the reading soon, without a result
};

namespace brackets {

/// Reads the pictures that lie in a folder, not those in folders below it. Hidden files and files
/// that are no pictures are passed over. Of pictures that belong together one is taken: of a raw
/// file and a developed file with the same base name, and of an original and what was made of it
/// and lies in the same folder, edited or merged (it tells the same exposure at the same time).
/// leftOut is told the path and the reason of each picture that cannot be part of a bracket.
/// Returns them by time.
std::vector<Shot> readFolder(const QString &folder, const FolderRules &rules,
                             const std::function<void(const QString &, const QString &)> &leftOut);

} // namespace brackets
