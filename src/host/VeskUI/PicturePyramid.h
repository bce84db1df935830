#pragma once

#include "VeskScreenColours.h"
#include "layer_composition.h"

#include <QCache>
#include <QHash>
#include <QImage>
#include <QSize>

/// Copies of a document's composed layers in 8 bits and the screen's colours, reduced and at full
/// size, in tiles that are made only when they are asked for. Level 1 halves the document's width
/// and height, each further level halves the one below; a pixel is the mean of the four below it.
/// The least recently used tiles give way when there are too many. GUI thread.
class PicturePyramid
{
public:
    static constexpr int kTileSize = 256; // level pixels; tiles at the right and lower edge may
                                          // be smaller

    struct TileKey
    {
        int level;
        int column;
        int row;
        friend bool operator==(const TileKey &a, const TileKey &b)
        {
            return a.level == b.level && a.column == b.column && a.row == b.row;
        }
        friend size_t qHash(const TileKey &key, size_t seed = 0)
        {
            return ::qHash(
                (quint64(key.level) << 48) ^ (quint64(key.column) << 24) ^ quint64(key.row), seed);
        }
    };

    PicturePyramid();

    /// Level whose pixels are the smallest that are not smaller than the device's: 0 (the document
    /// itself) for zooms above 1/2.
    static int levelForZoom(double zoom);

    /// Drops all tiles. Those to come get their colours through toScreen, unless it is empty.
    void reset(const QSize &documentSize, const VeskScreenColours::Conversion &toScreen = {});
    const VeskScreenColours::Conversion &toScreen() const { return conversion; }
    /// Makes room for a viewport of that size in device pixels.
    void setViewport(const QSize &size);

    /// Size of a level in its own pixels.
    QSize levelSize(int level) const;
    /// Where a tile lies in its level; empty outside of the level.
    QRect tileRect(const TileKey &key) const;

    /// The tile (QImage::Format_ARGB32_Premultiplied) if it has been made, else null. Borrowed,
    /// valid until the next operation that is not const.
    const QImage *tile(const TileKey &key) const;
    /// Makes the tile or one of those below that it needs: a bounded piece of work. Returns whether
    /// the tile is there now.
    bool buildStep(const TileKey &key, const std::vector<SourceLayer> &layers);

    /// The document's pixels inside region, which must lie in the document, put together from tiles
    /// of level 0. Makes those that are missing: work in proportion to region.
    QImage documentPixels(const QRect &region, const std::vector<SourceLayer> &layers);

    /// Pixels of the document that were read to make tiles, since construction.
    qint64 sourcePixelsRead() const { return pixelsRead; }

private:
    void buildFromDocument(const TileKey &key, const std::vector<SourceLayer> &layers);
    bool buildFromChildren(const TileKey &key, const std::vector<SourceLayer> &layers);

    QSize document;
    VeskScreenColours::Conversion conversion;
    QCache<TileKey, QImage> tiles; // every tile costs 1
    qint64 pixelsRead = 0;
};
