#pragma once

#include "picture_decoder.h"

#include <QStringList>

#include <functional>
#include <vector>

/// Decodes the files side by side, on as many threads as there are processor cores. Returns what
/// decodePicture gave for each, in their order. onDecoded is told on the calling thread how many
/// are done.
std::vector<DecodedPicture> loadPictures(const QStringList &paths,
                                         const std::function<void(int)> &onDecoded);
