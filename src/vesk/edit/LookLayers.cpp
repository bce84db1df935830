#include "LookLayers.h"

#include <adjust.h>
#include <area_mean.h>

void LookLayers::read(const LookSource &source, int number)
{
    if (number == sourceNumber)
        return;
    layers.clear();
    part = {};
    const QList<QImage> pictures = source.pictures();
    for (int i = 0; i < pictures.size(); ++i) {
        const double opacity = source.opacities.value(i, 1.0);
        if (pictures[i].isNull() || opacity <= 0)
            continue;
        const QImage whole = pictures[i].convertToFormat(exposure::adjustableFormat(pictures[i]));
        layers.push_back(
            {pictures[i], opacity, std::make_unique<exposure::LightMap>(whole), {}, {}, {}});
    }
    sourceNumber = pictures.isEmpty() ? 0 : number;
}

void LookLayers::reduce(const QRect &pixels, QSize size)
{
    if (pixels == part && size == partSize)
        return;
    for (Layer &layer : layers)
        reduceLayer(layer, pixels, size);
    part = pixels;
    partSize = size;
}

void LookLayers::reduceLayer(Layer &layer, const QRect &pixels, QSize size)
{
    const auto place = reduced_layers::placeOf(layer.picture.size(), pixels, size);
    layer.small = {};
    if (place.covered.isEmpty())
        return;
    const QImage small = picture::areaMean(layer.picture, place.covered, place.size);
    layer.small = small.convertToFormat(exposure::adjustableFormat(small));
    layer.rect = place.rect;
    layer.window = {place.covered.topLeft(), double(place.covered.width()) / place.size.width()};
}

QImage LookLayers::withLook(const exposure::Look &look) const
{
    QList<reduced_layers::Layer> adjusted;
    for (const Layer &layer : layers) {
        adjusted.append({layer.small, layer.rect, layer.opacity});
        if (!layer.small.isNull())
            exposure::adjust(adjusted.last().picture, look, layer.map.get(), layer.window);
    }
    return reduced_layers::composed(adjusted, partSize);
}
