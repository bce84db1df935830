#include "resample.h"

#include "grey_plane.h"
#include "large_memory.h"
#include "parallel_rows.h"
#include "resample_rows.h"

#include <QColorSpace>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>

namespace registration {
namespace {

constexpr int kBlock = 16; ///< pixels in a row between whose ends positions are interpolated
constexpr int kFractionBits = 16;
constexpr double kFraction = 1 << kFractionBits;
constexpr int kPhaseShift = 9; ///< from fractions to phases
constexpr int kTapsBefore = kTaps / 2 - 1;

static_assert(kFraction / (1 << kPhaseShift) == kPhases);

/// A position in the shot, in pixels times kFraction.
struct Position
{
    int64_t x;
    int64_t y;
};

bool hasNoMotion(const Transform &transform)
{
    return transform.kind == Kind::Identity || transform.kind == Kind::Unaligned;
}

/// Far outside the shot where the map has no finite place.
Position positionOf(const Matrix &toShot, int x, int y)
{
    const QPointF place = mapped(toShot, QPointF(x, y));
    const auto fixed = [](double value) {
        constexpr double kFar = 1 << 20;
        return std::llround((value >= -kFar && value <= kFar ? value : -kFar) * kFraction);
    };
    return {fixed(place.x()), fixed(place.y())};
}

TapPlace tapPlace(Position position, QSize shot)
{
    constexpr int64_t kHalfPhase = int64_t(1) << (kPhaseShift - 1);
    constexpr int64_t kPhaseMask = kPhases - 1;
    const int64_t x = (position.x + kHalfPhase) >> kPhaseShift;
    const int64_t y = (position.y + kHalfPhase) >> kPhaseShift;
    TapPlace place;
    place.isCovered = x >= 0 && y >= 0 && x <= int64_t(shot.width() - 1) * kPhases &&
                      y <= int64_t(shot.height() - 1) * kPhases;
    if (!place.isCovered)
        return place;
    place.x = static_cast<int>(x / kPhases) - kTapsBefore;
    place.y = static_cast<int>(y / kPhases) - kTapsBefore;
    place.phaseX = static_cast<uint16_t>(x & kPhaseMask);
    place.phaseY = static_cast<uint16_t>(y & kPhaseMask);
    return place;
}

/// The places of one row: exact every kBlock pixels, in even steps between. A perspective map
/// bends by less than a thousandth of a pixel over that.
void findPlaces(const Matrix &toShot, int y, QSize shot, std::vector<TapPlace> &places)
{
    const int width = static_cast<int>(places.size());
    Position from = positionOf(toShot, 0, y);
    for (int first = 0; first < width; first += kBlock) {
        const Position to = positionOf(toShot, first + kBlock, y);
        for (int i = 0; i < std::min(kBlock, width - first); ++i) {
            const Position at{from.x + (to.x - from.x) * i / kBlock,
                              from.y + (to.y - from.y) * i / kBlock};
            places[size_t(first + i)] = tapPlace(at, shot);
        }
        from = to;
    }
}

QImage::Format formatFor(const QImage &shot)
{
    return isDeep(shot) ? QImage::Format_RGBA64_Premultiplied : QImage::Format_ARGB32_Premultiplied;
}

/// The shot's pixels as the result has them, opaque where the shot has no alpha.
QImage readable(const QImage &shot)
{
    const QImage::Format opaque = isDeep(shot) ? QImage::Format_RGBX64 : QImage::Format_RGB32;
    const QImage::Format format = shot.hasAlphaChannel() ? formatFor(shot) : opaque;
    QImage result = shot.format() == format ? shot : shot.convertToFormat(format);
    if (result.isNull())
        throw std::bad_alloc();
    return result;
}

QImage emptyResult(const QImage &shot, QSize size)
{
    QImage result = memory::largeImage(size, formatFor(shot));
    if (result.isNull())
        throw std::bad_alloc();
    result.setColorSpace(shot.colorSpace());
    result.setDotsPerMeterX(shot.dotsPerMeterX());
    result.setDotsPerMeterY(shot.dotsPerMeterY());
    return result;
}

template <typename Pixel>
void copyRow(const QImage &source, int sourceY, int shiftX, QImage &result, int y)
{
    auto *out = reinterpret_cast<Pixel *>(result.scanLine(y));
    std::fill_n(out, result.width(), Pixel{0});
    const int begin = std::clamp(shiftX, 0, result.width());
    const int end = std::clamp(source.width() + shiftX, begin, result.width());
    if (sourceY < 0 || sourceY >= source.height())
        return;
    const auto *from = reinterpret_cast<const Pixel *>(source.constScanLine(sourceY)) - shiftX;
    constexpr Pixel kOpaque = Pixel(~Pixel{0}) << (8 * sizeof(Pixel) / 4 * 3);
    const Pixel opaque = source.hasAlphaChannel() ? 0 : kOpaque;
    for (int x = begin; x < end; ++x) {
        const Pixel pixel = from[x] | opaque;
        out[x] = pixel >= kOpaque ? pixel : 0;
    }
}

class Resampling
{
public:
    Resampling(const QImage &shot, const Transform &transform, QSize size)
        : source(readable(shot))
        , result(emptyResult(shot, size))
        , toShot(hasNoMotion(transform) ? identityMatrix() : inverse(transform.matrix))
        , bytesPerPixel(size_t(source.depth()) / 8)
        , isCopy(isWholeShift(toShot))
    {
    }

    QImage run(const std::atomic<bool> &isCancelled)
    {
        result.bits(); // one's own before the threads write
        parallel::rows(result.size(), [&](int begin, int end) {
            std::vector<TapPlace> places(size_t(result.width()));
            for (int y = begin; y < end && !isCancelled; ++y)
                makeRow(y, places);
        });
        return isCancelled ? QImage() : result;
    }

private:
    void makeRow(int y, std::vector<TapPlace> &places)
    {
        if (isCopy)
            shiftRow(y);
        else
            filterRow(y, places);
    }

    void shiftRow(int y)
    {
        const auto shiftX = static_cast<int>(-toShot[2]);
        const int sourceY = y + static_cast<int>(toShot[5]);
        if (bytesPerPixel == sizeof(uint32_t))
            copyRow<uint32_t>(source, sourceY, shiftX, result, y);
        else
            copyRow<uint64_t>(source, sourceY, shiftX, result, y);
    }

    void filterRow(int y, std::vector<TapPlace> &places)
    {
        findPlaces(toShot, y, source.size(), places);
        const SourcePixels pixels{source.constBits(), size_t(source.bytesPerLine()), source.width(),
                                  source.height(), !source.hasAlphaChannel()};
        uchar *out = result.scanLine(y);
        if (bytesPerPixel == sizeof(uint32_t))
            resampleWords(pixels, places.data(), places.size(), reinterpret_cast<uint32_t *>(out));
        else
            plain::resampleDeep(pixels, places.data(), places.size(),
                                reinterpret_cast<uint16_t *>(out));
    }

    const QImage source;
    QImage result;
    const Matrix toShot;
    const size_t bytesPerPixel;
    const bool isCopy;
};

} // namespace

QImage resample(const QImage &shot, const Transform &transform, QSize referenceSize,
                const std::atomic<bool> *isCancelled)
{
    static const std::atomic<bool> never{false};
    if (shot.isNull() || referenceSize.isEmpty())
        return {};
    if (hasNoMotion(transform) && shot.size() == referenceSize)
        return shot;
    try {
        return Resampling(shot, transform, referenceSize).run(isCancelled ? *isCancelled : never);
    } catch (const std::bad_alloc &) {
        return {};
    }
}

} // namespace registration
