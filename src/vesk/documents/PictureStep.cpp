#include "PictureStep.h"

#include <area_mean.h>
#include <large_memory.h>
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

/// Beside one another, as memory that nobody has touched yet takes its time.
void copyArea(const QImage &from, const QRect &area, QImage &to, QPoint place)
{
    const qsizetype first = bytesOf(from, area.x());
    const qsizetype size = bytesOf(from, area.width());
    const qsizetype rowBytes = to.bytesPerLine();
    uchar *const target = to.bits() + place.y() * rowBytes + bytesOf(to, place.x());
    parallel::rows(area.size(), [&](int begin, int end) {
        for (int y = begin; y < end; ++y)
            std::memcpy(target + y * rowBytes, from.constScanLine(area.y() + y) + first,
                        size_t(size));
    });
}

void copyInto(QImage &picture, const QImage &part, QPoint place)
{
    copyArea(part, part.rect(), picture, place);
}

/// A quarter; in squares, which fill whole lines of the cache.
template <typename Pixel>
void turnInto(QImage &result, const QImage &picture, bool isClockwise)
{
    constexpr int kSide = 32;
    uchar *const bits = result.bits();
    const qsizetype rowBytes = result.bytesPerLine();
    const int width = result.width();
    const int lastRow = picture.height() - 1;
    const int lastColumn = picture.width() - 1;
    const auto turnSquare = [&](const QRect &square) {
        for (int x = square.left(); x <= square.right(); ++x) {
            const auto *row = reinterpret_cast<const Pixel *>(
                picture.constScanLine(isClockwise ? lastRow - x : x));
            for (int y = square.top(); y <= square.bottom(); ++y)
                reinterpret_cast<Pixel *>(bits + y * rowBytes)[x] =
                    row[isClockwise ? y : lastColumn - y];
        }
    };
    parallel::rows(result.size(), [&](int begin, int end) {
        for (int y = begin; y < end; y += kSide) {
            for (int x = 0; x < width; x += kSide)
                turnSquare(QRect(x, y, std::min(kSide, width - x), std::min(kSide, end - y)));
        }
    });
}

/// Of a picture that lies at that place in another, from a pixel of the other on.
picture::PixelRun runOf(const QImage &picture, QPoint place, int x, int y)
{
    return {picture.constScanLine(y - place.y()) + bytesOf(picture, x - place.x()),
            place.x() + picture.width()};
}

int tilesAlong(int length)
{
    return (length + kTileSide - 1) / kTileSide;
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

    bool apply(QImage &picture) override
    {
        QImage own =
            picture.isDetached() ? std::move(picture) : picture_step::part(picture, picture.rect());
        if (own.isNull())
            return false;
        picture = std::move(own);
        const Bits whole(picture);
        parallel::each(int(tiles.size()), [&](int i) { tiles[size_t(i)].swapWith(whole); });
        return true;
    }

    QImage other(const QImage &picture) const override
    {
        QImage result = picture_step::part(picture, picture.rect());
        if (result.isNull())
            return result;
        for (const Tile &tile : tiles)
            copyInto(result, tile.pixels, tile.place);
        return result;
    }

    QSize otherSize(const QImage &picture) const override { return picture.size(); }

    QImage otherReduced(const QImage &picture, const QRect &area, QSize size) const override
    {
        if (!picture::isTakenFromRuns(picture.format()))
            return PictureStep::otherReduced(picture, area, size);
        const int columns = tilesAlong(picture.width());
        std::vector<const Tile *> grid(size_t(columns) * size_t(tilesAlong(picture.height())));
        const auto at = [&](int x, int y) -> const Tile *& {
            return grid[size_t(y / kTileSide) * size_t(columns) + size_t(x / kTileSide)];
        };
        for (const Tile &tile : tiles)
            at(tile.place.x(), tile.place.y()) = &tile;
        const auto run = [&](int x, int y) {
            if (const Tile *tile = at(x, y))
                return runOf(tile->pixels, tile->place, x, y);
            const picture::PixelRun rest = runOf(picture, {}, x, y);
            return picture::PixelRun{rest.pixels,
                                     std::min(rest.end, (x / kTileSide + 1) * kTileSide)};
        };
        return picture::areaMean(picture::PixelSource{picture, run}, area, size);
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

    bool apply(QImage &picture) override
    {
        std::swap(picture, held);
        return true;
    }
    QImage other(const QImage &) const override { return held; }
    QSize otherSize(const QImage &) const override { return held.size(); }
    bool isInstant() const override { return true; }
    qint64 bytes() const override { return held.sizeInBytes(); }

private:
    QImage held;
};

class CropStep : public PictureStep
{
public:
    CropStep(QSize wholeSize, const QRect &cropArea)
        : whole(wholeSize)
        , area(cropArea)
    {
    }

    bool apply(QImage &picture) override
    {
        const QImage result = other(picture);
        if (result.isNull())
            return false;
        if (isCropped)
            borders.clear();
        else
            cutBorders(picture);
        picture = result;
        isCropped = !isCropped;
        return true;
    }

    QImage other(const QImage &picture) const override
    {
        if (!isCropped)
            return picture_step::part(picture, area);
        QImage uncut = picture_step::likeness(picture, whole);
        if (uncut.isNull())
            return uncut;
        copyInto(uncut, picture, area.topLeft());
        for (const Border &border : borders)
            copyInto(uncut, border.pixels, border.place);
        return uncut;
    }

    QSize otherSize(const QImage &) const override { return isCropped ? whole : area.size(); }

    QImage otherReduced(const QImage &picture, const QRect &part, QSize size) const override
    {
        if (!isCropped)
            return picture::areaMean(picture, part.translated(area.topLeft()), size);
        if (!picture::isTakenFromRuns(picture.format()))
            return PictureStep::otherReduced(picture, part, size);
        const auto run = [&](int x, int y) {
            for (const Border &border : borders) {
                if (QRect(border.place, border.pixels.size()).contains(x, y))
                    return runOf(border.pixels, border.place, x, y);
            }
            return runOf(picture, area.topLeft(), x, y);
        };
        return picture::areaMean(picture::PixelSource{picture, run}, part, size);
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
                borders.push_back({border.topLeft(), picture_step::part(picture, border)});
        }
    }

    const QSize whole;
    const QRect area;
    std::vector<Border> borders;
    bool isCropped = false;
};

class TurnStep : public PictureStep
{
public:
    explicit TurnStep(int quartersOfATurn)
        : quarters(quartersOfATurn)
    {
    }

    bool apply(QImage &picture) override
    {
        const QImage result = other(picture);
        if (result.isNull())
            return false;
        picture = result;
        quarters = -quarters;
        return true;
    }

    QImage other(const QImage &picture) const override
    {
        return picture_step::turned(picture, quarters);
    }

    QSize otherSize(const QImage &picture) const override { return turnedSize(picture.size()); }

    /// Turned last, when there are few pixels.
    QImage otherReduced(const QImage &picture, const QRect &area, QSize size) const override
    {
        const QPoint corner = turnedBack(area.topLeft(), picture.size());
        const QPoint opposite = turnedBack(area.bottomRight(), picture.size());
        const QRect from = QRect(corner, QSize(1, 1)) | QRect(opposite, QSize(1, 1));
        return picture_step::turned(picture::areaMean(picture, from, turnedSize(size)), quarters);
    }

    qint64 bytes() const override { return 0; }

private:
    QSize turnedSize(QSize size) const { return quarters % 2 ? size.transposed() : size; }

    /// Which pixel of a picture comes to that place.
    QPoint turnedBack(QPoint place, QSize size) const
    {
        switch (quarters & 3) {
        case 1:
            return {place.y(), size.height() - 1 - place.x()};
        case 2:
            return {size.width() - 1 - place.x(), size.height() - 1 - place.y()};
        case 3:
            return {size.width() - 1 - place.y(), place.x()};
        default:
            return place;
        }
    }

    int quarters;
};

class ChangeStep : public PictureStep
{
public:
    explicit ChangeStep(const picture_step::Change &changeToMake)
        : change(changeToMake)
    {
    }

    bool apply(QImage &picture) override
    {
        if (made)
            return made->apply(picture);
        const QImage after = change.made(picture);
        if (after.isNull())
            return false;
        made = picture_step::ofChange(picture, after);
        picture = after;
        return true;
    }

    QImage other(const QImage &picture) const override
    {
        return made ? made->other(picture) : change.made(picture);
    }

    QSize otherSize(const QImage &picture) const override
    {
        return made ? made->otherSize(picture) : change.size;
    }

    QImage otherReduced(const QImage &picture, const QRect &area, QSize size) const override
    {
        if (made)
            return made->otherReduced(picture, area, size);
        return change.reduced ? change.reduced(picture, area, size)
                              : PictureStep::otherReduced(picture, area, size);
    }

    bool isInstant() const override { return made && made->isInstant(); }
    qint64 bytes() const override { return made ? made->bytes() : 0; }

private:
    const picture_step::Change change;
    std::unique_ptr<PictureStep> made; // leads back, and forth again
};

} // namespace

QImage PictureStep::otherReduced(const QImage &picture, const QRect &area, QSize size) const
{
    return picture::areaMean(other(picture), area, size);
}

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

std::unique_ptr<PictureStep> picture_step::toCrop(const QImage &before, const QRect &area)
{
    if (before.depth() < 8) // a crop may begin within a byte
        return toChange({area.size(), [area](const QImage &whole) { return part(whole, area); }});
    return std::make_unique<CropStep>(before.size(), area);
}

std::unique_ptr<PictureStep> picture_step::toTurn(const QImage &before, int quarters)
{
    const QImage corner = before.copy(0, 0, 1, 1);
    if (turned(turned(corner, quarters), -quarters).format() == before.format())
        return std::make_unique<TurnStep>(quarters);
    const QSize size = quarters % 2 ? before.size().transposed() : before.size();
    return toChange({size, [quarters](const QImage &whole) { return turned(whole, quarters); }});
}

std::unique_ptr<PictureStep> picture_step::toChange(const Change &change)
{
    return std::make_unique<ChangeStep>(change);
}

QImage picture_step::turned(const QImage &picture, int quarters)
{
    const bool isSideways = quarters % 2 != 0;
    const bool isByPixels = isSideways && (picture.depth() == 32 || picture.depth() == 64);
    QImage result = isByPixels ? likeness(picture, picture.size().transposed())
                               : picture.transformed(QTransform().rotate(90.0 * quarters));
    if (result.isNull())
        return result;
    const bool isClockwise = (quarters & 3) == 1;
    if (isByPixels && picture.depth() == 32)
        turnInto<quint32>(result, picture, isClockwise);
    else if (isByPixels)
        turnInto<quint64>(result, picture, isClockwise);
    result.setColorSpace(picture.colorSpace());
    result.setDotsPerMeterX(isSideways ? picture.dotsPerMeterY() : picture.dotsPerMeterX());
    result.setDotsPerMeterY(isSideways ? picture.dotsPerMeterX() : picture.dotsPerMeterY());
    return result;
}

QImage picture_step::part(const QImage &picture, const QRect &area)
{
    if (picture.depth() < 8) // an area may begin within a byte
        return picture.copy(area);
    QImage copy = likeness(picture, area.size());
    if (!copy.isNull())
        copyArea(picture, area, copy, {});
    return copy;
}

QImage picture_step::likeness(const QImage &model, QSize size)
{
    QImage picture = memory::largeImage(size, model.format());
    picture.setColorTable(model.colorTable());
    picture.setColorSpace(model.colorSpace());
    picture.setDotsPerMeterX(model.dotsPerMeterX());
    picture.setDotsPerMeterY(model.dotsPerMeterY());
    const QStringList keys = model.textKeys();
    for (const QString &key : keys)
        picture.setText(key, model.text(key));
    return picture;
}
