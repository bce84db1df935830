#pragma once

#include "picture_decoder.h"

#include <QStringList>

#include <functional>
#include <vector>

/// Decodes the files, camera raw files too, side by side on as many threads as there are processor
/// cores. Returns the pictures or what is wrong with them, in the order of the files; one with more
/// pixels than pixelLimit is not decoded. onDecoded is
/// told on the calling thread how many are done.
std::vector<DecodedPicture> loadPictures(const QStringList &paths, qint64 pixelLimit,
                                         const std::function<void(int)> &onDecoded);
