#include "LookLayers.h"

#include <adjust.h>
#include <area_mean.h>

#include <QColorSpace>
#include <QPainter>

#include <algorithm>

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
    const double scale = double(size.width()) / pixels.width();
    const QRect covered = pixels & layer.picture.rect();
    layer.small = {};
    if (covered.isEmpty())
        return;
    const QImage cut =
        covered == layer.picture.rect() ? layer.picture : layer.picture.copy(covered);
    const QSize smallSize = covered == pixels
                                ? size
                                : QSize(std::max(1, qRound(covered.width() * scale)),
                                        std::max(1, qRound(covered.height() * scale)));
    const QImage small = picture::areaMean(cut, smallSize);
    layer.small = small.convertToFormat(exposure::adjustableFormat(small));
    layer.place = {QPointF(covered.topLeft() - pixels.topLeft()) * scale, QSizeF(smallSize)};
    layer.window = {covered.topLeft(), double(covered.width()) / smallSize.width()};
}

QImage LookLayers::withLook(const exposure::Look &look) const
{
    std::vector<QImage> adjusted;
    for (const Layer &layer : layers) {
        adjusted.push_back(layer.small);
        if (!layer.small.isNull())
            exposure::adjust(adjusted.back(), look, layer.map.get(), layer.window);
    }
    if (adjusted.empty())
        return {};
    const bool isAlone =
        layers.size() == 1 && layers.front().opacity >= 1 && adjusted.front().size() == partSize;
    QImage result = isAlone ? adjusted.front() : composed(adjusted);
    result.setColorSpace(layers.front().picture.colorSpace());
    return result;
}

QImage LookLayers::composed(const std::vector<QImage> &pictures) const
{
    const bool isDeep = std::any_of(pictures.begin(), pictures.end(),
                                    [](const QImage &each) { return each.depth() == 64; });
    QImage result(partSize, isDeep ? QImage::Format_RGBA64_Premultiplied
                                   : QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    for (size_t i = 0; i < pictures.size(); ++i) {
        painter.setOpacity(layers[i].opacity);
        painter.drawImage(layers[i].place, pictures[i]);
    }
    return result;
}
