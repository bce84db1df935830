#pragma once

#include "Transform.h"

#include <QImage>

/// What a user of OpenCV would call for the same job.
namespace opencv {

/// findTransformECC with a homography on grey pictures of half the size, their local contrast
/// equalised, from the identity. From the shot onto the reference; the identity where it fails.
registration::Matrix eccHomography(const QImage &reference, const QImage &shot);

void setThreads(int threads);

} // namespace opencv
