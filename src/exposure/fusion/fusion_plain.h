#pragma once

#include "fusion_options.h"

#include <vector>

/// What fusion::fuse gives, pixel by pixel and in whole pictures: the definition, slow and with
/// plenty of memory. Takes the shots that fuse takes. Any thread, reentrant.
QImage fusePlain(std::vector<fusion::Shot> shots, const fusion::Options &options = {});
