#pragma once

#include "picture_reader.h"

#include <QStringList>

#include <functional>
#include <vector>

namespace command_line {

/// Decodes the files, camera raw files too, side by side on as many threads as there are processor
/// cores. Returns the pictures or what is wrong with them, in the order of the files. onDecoded is
/// told how many are done, on any thread, but one call at a time.
std::vector<DecodedPicture> loadPictures(const QStringList &paths, const ReadOptions &options,
                                         const std::function<void(int)> &onDecoded);

} // namespace command_line
