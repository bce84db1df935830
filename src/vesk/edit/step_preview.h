#pragma once

#include <VeskCanvas.h>

#include <QList>

class PictureSteps;

/// How a document is going to look once steps are applied to its pictures, at the size of the
/// screen: at the cost of reading the pixels that are seen.
namespace step_preview {

/// A document as the GUI thread knows it before the steps.
struct Document
{
    QList<QImage> pictures;
    QList<double> opacities; ///< 0 for a layer that is hidden
    VeskCanvas::Sight sight; ///< of what is to come
};

/// GUI thread. Nothing is seen (sight.pixels is empty) where the canvas is not visible.
Document before(const VeskContext &document, const PictureSteps &steps);

/// Any thread.
VeskCanvas::Preview after(const Document &before, const PictureSteps &steps);

} // namespace step_preview
