#pragma once

#include "picture_decoder.h"

#include <QStringList>

#include <functional>
#include <vector>

/// Decodes the files, camera raw files too, side by side on as many threads as there are processor
/// cores. Returns the pictures or what is wrong with them, in the order of the files. onDecoded is
/// told on the calling thread how many are done.
std::vector<DecodedPicture> loadPictures(const QStringList &paths,
                                         const std::function<void(int)> &onDecoded);
