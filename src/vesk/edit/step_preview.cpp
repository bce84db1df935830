#include "step_preview.h"
#include "reduced_layers.h"

#include <DocumentHistory.h>
#include <VeskContext.h>
#include <screen_colours.h>

namespace {

QSize sizeOfAll(const QList<QSize> &sizes)
{
    QSize whole(0, 0);
    for (const QSize size : sizes)
        whole = whole.expandedTo(size);
    return whole;
}

} // namespace

step_preview::Document step_preview::before(const VeskContext &document, const PictureSteps &steps)
{
    Document before{document::layerPictures(document), document::layerOpacities(document), {}};
    const VeskCanvas *canvas = document.getCanvas();
    if (canvas && canvas->isVisible())
        before.sight = canvas->sight(sizeOfAll(steps.otherSizes(before.pictures)));
    return before;
}

VeskCanvas::Preview step_preview::after(const Document &before, const PictureSteps &steps)
{
    const VeskCanvas::Sight &sight = before.sight;
    const QList<QSize> sizes = steps.otherSizes(before.pictures);
    QList<reduced_layers::Layer> layers;
    for (int i = 0; i < before.pictures.size(); ++i) {
        const auto place = reduced_layers::placeOf(sizes[i], sight.pixels, sight.size);
        if (before.opacities[i] > 0 && !place.covered.isEmpty())
            layers.append({steps.otherReduced(before.pictures, i, place.covered, place.size),
                           place.rect, before.opacities[i]});
    }
    const QImage levels = reduced_layers::composed(layers, sight.size);
    return {sight, levels, screen_colours::shown(levels)};
}
