#pragma once

#include "VeskCanvas.h"
#include "layer_composition.h"

namespace histogram {

/// Counts the pixels of a document of that size as its layers show them, by 8-bit level of their
/// encoded values. The luminosity is Rec. 709 luma, rounded. Fully transparent pixels are not
/// counted; half transparent ones count with their own colour. Any thread, reentrant.
VESKUI_EXPORT VeskCanvas::Histogram countLevels(const std::vector<SourceLayer> &layers,
                                                const QSize &document);

} // namespace histogram
