#include "PictureStep.h"

#include <parallel_rows.h>

#include <QColorSpace>
#include <QTransform>

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

constexpr int kTileSide = 128; // a whole number of bytes at every depth

qsizetype bytesOf(const QImage &picture, int pixels)
{
    return (qsizetype(pixels) * picture.depth() + 7) / 8;
}

bool isSame(const QImage &a, const QImage &b, const QRect &tile)
{
    const qsizetype from = bytesOf(a, tile.x());
    const qsizetype size = bytesOf(a, tile.width());
    for (int y = tile.top(); y <= tile.bottom(); ++y) {
        if (std::memcmp(a.constScanLine(y) + from, b.constScanLine(y) + from, size_t(size)) != 0)
            return false;
    }
    return true;
}

void copyInto(QImage &picture, const QImage &part, QPoint place)
{
    const qsizetype from = bytesOf(picture, place.x());
    const qsizetype size = bytesOf(picture, part.width());
    for (int y = 0; y < part.height(); ++y)
        std::memcpy(picture.scanLine(place.y() + y) + from, part.constScanLine(y), size_t(size));
}

std::vector<QRect> tilesOf(QSize size)
{
    std::vector<QRect> tiles;
    const QRect whole(QPoint(), size);
    for (int y = 0; y < size.height(); y += kTileSide) {
        for (int x = 0; x < size.width(); x += kTileSide)
            tiles.push_back(QRect(x, y, kTileSide, kTileSide) & whole);
    }
    return tiles;
}

/// Those of tiles where the pictures differ, in their order.
std::vector<QRect> differing(const std::vector<QRect> &tiles, const QImage &a, const QImage &b)
{
    std::vector<char> isOther(tiles.size());
    parallel::each(int(tiles.size()),
                   [&](int i) { isOther[size_t(i)] = !isSame(a, b, tiles[size_t(i)]); });
    std::vector<QRect> found;
    for (size_t i = 0; i < tiles.size(); ++i) {
        if (isOther[i])
            found.push_back(tiles[i]);
    }
    return found;
}

class TileStep : public PictureStep
{
public:
    TileStep(const QImage &before, const std::vector<QRect> &changed)
    {
        for (const QRect &tile : changed)
            tiles.push_back({tile.topLeft(), before.copy(tile)});
    }

    void apply(QImage &picture) override
    {
        const Bits whole(picture);
        parallel::each(int(tiles.size()), [&](int i) { tiles[size_t(i)].swapWith(whole); });
    }

    QImage other(const QImage &picture) const override
    {
        QImage result = picture.copy();
        if (result.isNull())
            return result;
        for (const Tile &tile : tiles)
            copyInto(result, tile.pixels, tile.place);
        return result;
    }

    qint64 bytes() const override
    {
        qint64 sum = 0;
        for (const Tile &tile : tiles)
            sum += tile.pixels.sizeInBytes();
        return sum;
    }

private:
    /// Bytes to be written by several threads.
    struct Bits
    {
        explicit Bits(QImage &picture)
            : depth(picture.depth())
            , rowBytes(picture.bytesPerLine())
            , bytes(picture.bits())
        {
        }

        const int depth;
        const qsizetype rowBytes;
        uchar *const bytes;
    };

    struct Tile
    {
        QPoint place;
        QImage pixels;

        void swapWith(const Bits &whole)
        {
            const qsizetype size = bytesOf(pixels, pixels.width());
            uchar *row = whole.bytes + place.y() * whole.rowBytes + place.x() * whole.depth / 8;
            for (int y = 0; y < pixels.height(); ++y, row += whole.rowBytes)
                std::swap_ranges(row, row + size, pixels.scanLine(y));
        }
    };

    std::vector<Tile> tiles;
};

class WholeStep : public PictureStep
{
public:
    explicit WholeStep(const QImage &before)
        : held(before)
    {
    }

    void apply(QImage &picture) override { std::swap(picture, held); }
    QImage other(const QImage &) const override { return held; }
    bool isInstant() const override { return true; }
    qint64 bytes() const override { return held.sizeInBytes(); }

private:
    QImage held;
};

class CropStep : public PictureStep
{
public:
    CropStep(const QImage &before, const QRect &cropArea)
        : whole(before.size())
        , area(cropArea)
    {
        cutBorders(before);
    }

    void apply(QImage &picture) override
    {
        const QImage result = other(picture);
        if (result.isNull()) // no memory: the picture stays as it is
            return;
        if (isCropped)
            borders.clear();
        else
            cutBorders(picture);
        picture = result;
        isCropped = !isCropped;
    }

    QImage other(const QImage &picture) const override
    {
        if (!isCropped)
            return picture.copy(area);
        QImage uncut = picture_step::likeness(picture, whole);
        if (uncut.isNull())
            return uncut;
        copyInto(uncut, picture, area.topLeft());
        for (const Border &border : borders)
            copyInto(uncut, border.pixels, border.place);
        return uncut;
    }

    qint64 bytes() const override
    {
        qint64 sum = 0;
        for (const Border &border : borders)
            sum += border.pixels.sizeInBytes();
        return sum;
    }

private:
    struct Border
    {
        QPoint place;
        QImage pixels;
    };

    void cutBorders(const QImage &picture)
    {
        const int right = area.right() + 1;
        const int below = area.bottom() + 1;
        for (const QRect &border :
             {QRect(0, 0, whole.width(), area.top()),
              QRect(0, below, whole.width(), whole.height() - below),
              QRect(0, area.top(), area.left(), area.height()),
              QRect(right, area.top(), whole.width() - right, area.height())}) {
            if (!border.isEmpty())
                borders.push_back({border.topLeft(), picture.copy(border)});
        }
    }

    const QSize whole;
    const QRect area;
    std::vector<Border> borders;
    bool isCropped = true;
};

class TurnStep : public PictureStep
{
public:
    explicit TurnStep(int quartersBack)
        : quarters(quartersBack)
    {
    }

    void apply(QImage &picture) override
    {
        picture = other(picture);
        quarters = -quarters;
    }
    QImage other(const QImage &picture) const override
    {
        return picture_step::turned(picture, quarters);
    }
    qint64 bytes() const override { return 0; }

private:
    int quarters;
};

} // namespace

std::unique_ptr<PictureStep> picture_step::ofChange(const QImage &before, const QImage &after)
{
    const bool isSameKind = before.size() == after.size() && before.format() == after.format() &&
                            before.colorTable() == after.colorTable() &&
                            before.colorSpace() == after.colorSpace();
    if (!isSameKind)
        return std::make_unique<WholeStep>(before);
    const std::vector<QRect> tiles = tilesOf(before.size());
    const std::vector<QRect> changed = differing(tiles, before, after);
    if (changed.size() == tiles.size()) // to change places costs no more memory, and no time
        return std::make_unique<WholeStep>(before);
    return std::make_unique<TileStep>(before, changed);
}

std::unique_ptr<PictureStep> picture_step::ofCrop(const QImage &before, const QRect &area)
{
    if (before.depth() < 8) // a crop may begin within a byte
        return std::make_unique<WholeStep>(before);
    return std::make_unique<CropStep>(before, area);
}

std::unique_ptr<PictureStep> picture_step::ofTurn(const QImage &before, int quarters)
{
    const QImage back = turned(turned(before.copy(0, 0, 1, 1), quarters), -quarters);
    if (back.format() != before.format())
        return std::make_unique<WholeStep>(before);
    return std::make_unique<TurnStep>(-quarters);
}

QImage picture_step::turned(const QImage &picture, int quarters)
{
    QImage result = picture.transformed(QTransform().rotate(90.0 * quarters));
    result.setColorSpace(picture.colorSpace());
    const bool isSideways = quarters % 2 != 0;
    result.setDotsPerMeterX(isSideways ? picture.dotsPerMeterY() : picture.dotsPerMeterX());
    result.setDotsPerMeterY(isSideways ? picture.dotsPerMeterX() : picture.dotsPerMeterY());
    return result;
}

QImage picture_step::likeness(const QImage &model, QSize size)
{
    QImage picture(size, model.format());
    picture.setColorTable(model.colorTable());
    picture.setColorSpace(model.colorSpace());
    picture.setDotsPerMeterX(model.dotsPerMeterX());
    picture.setDotsPerMeterY(model.dotsPerMeterY());
    const QStringList keys = model.textKeys();
    for (const QString &key : keys)
        picture.setText(key, model.text(key));
    return picture;
}
