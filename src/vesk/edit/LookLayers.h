#pragma once

#include "LookPreview.h"
#include "reduced_layers.h"

#include <LightMap.h>
#include <Look.h>

#include <memory>
#include <vector>

/// The layers of a document in a part of it, reduced, ready for looks. One thread at a time.
class LookLayers
{
public:
    /// The layers of the source with that number, unless they are here already.
    void read(const LookSource &source, int number);
    /// Those pixels of the document, as a picture of that size, not larger.
    void reduce(const QRect &pixels, QSize size);
    /// What the document would show there, as reduced_layers::composed of formats that looks take.
    QImage withLook(const exposure::Look &look) const;

private:
    struct Layer
    {
        QImage picture;
        double opacity;
        std::unique_ptr<exposure::LightMap> map; ///< of the whole
        QImage small;                            ///< adjustable
        QRectF rect;                             ///< in the reduced part
        exposure::LightMap::Window window;       ///< of small, in the picture
    };

    static void reduceLayer(Layer &layer, const QRect &pixels, QSize size);

    std::vector<Layer> layers;
    int sourceNumber = 0;
    QRect part;
    QSize partSize;
};
