#pragma once

#include "VeskCanvas.h"
#include "VeskScreenColours.h"
#include "layer_composition.h"

namespace histogram {

/// Counts the pixels of a document of that size as its layers show them, by 8-bit level of their
/// encoded values in the space in which pictures are compared (see VeskScreenColours). The
/// luminosity is Rec. 709 luma, rounded. Fully transparent pixels are not counted; half transparent
/// ones count with their own colour. toCommon: conversion from the layers' space, may be empty.
/// Any thread, reentrant.
VESKUI_EXPORT VeskCanvas::Histogram countLevels(const std::vector<SourceLayer> &layers,
                                                const QSize &document,
                                                const VeskScreenColours::Conversion &toCommon = {});

/// The conversion for layers. GUI thread.
VESKUI_EXPORT VeskScreenColours::Conversion toCommon(const std::vector<SourceLayer> &layers);

} // namespace histogram
