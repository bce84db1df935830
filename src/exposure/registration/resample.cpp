#include "resample.h"

#include "LineResampler.h"
#include "grey_plane.h"
#include "large_memory.h"
#include "parallel_rows.h"
#include "resample_rows.h"

#include <QColorSpace>

#include <algorithm>
#include <new>
#include <type_traits>

namespace registration {
namespace {

constexpr int kTapsBefore = kTaps / 2 - 1;

bool hasNoMotion(const Transform &transform)
{
    return transform.kind == Kind::Identity || transform.kind == Kind::Unaligned;
}

TapPlace tapPlace(int32_t x, int32_t y, QSize shot)
{
    TapPlace place;
    place.isCovered =
        x >= 0 && y >= 0 && x <= (shot.width() - 1) * kPhases && y <= (shot.height() - 1) * kPhases;
    if (!place.isCovered)
        return place;
    place.x = x / kPhases - kTapsBefore;
    place.y = y / kPhases - kTapsBefore;
    place.phaseX = uint16_t(x % kPhases);
    place.phaseY = uint16_t(y % kPhases);
    return place;
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

/// Rows one by one, each pixel for itself: for any map.
class PixelResampler
{
public:
    PixelResampler(const SourcePixels &shot, const Matrix &matrix, int width)
        : source(shot)
        , toShot(matrix)
        , places(width)
        , taps(size_t(width))
    {
    }

    void makeRow(int y, uint8_t *out)
    {
        findTaps(y);
        resampleWords(source, taps.data(), taps.size(), reinterpret_cast<uint32_t *>(out));
    }

    void makeRow(int y, uint16_t *out)
    {
        findTaps(y);
        plain::resampleDeep(source, taps.data(), taps.size(), out);
    }

private:
    void findTaps(int y)
    {
        findPlaces(toShot, y, places);
        const QSize size(source.width, source.height);
        for (size_t i = 0; i < taps.size(); ++i)
            taps[i] = tapPlace(places.x[i], places.y[i], size);
    }

    const SourcePixels source;
    const Matrix toShot;
    RowPlaces places;
    std::vector<TapPlace> taps;
};

class Resampling
{
public:
    Resampling(const QImage &shot, const Transform &transform, QSize size)
        : source(readable(shot))
        , result(emptyResult(shot, size))
        , toShot(hasNoMotion(transform) ? identityMatrix() : inverse(transform.matrix))
    {
    }

    QImage run(const std::atomic<bool> &isCancelled)
    {
        result.bits(); // one's own before the threads write
        if (source.depth() == 32)
            makeRows<uint8_t>(isCancelled);
        else
            makeRows<uint16_t>(isCancelled);
        return isCancelled ? QImage() : result;
    }

private:
    template <typename Channel>
    void makeRows(const std::atomic<bool> &isCancelled)
    {
        if (isWholeShift(toShot))
            shiftRows<Channel>(isCancelled);
        else if (areRowsLevel(toShot, result.size()))
            filterRows<Channel, LineResampler<Channel>>(isCancelled);
        else
            filterRows<Channel, PixelResampler>(isCancelled);
    }

    template <typename Channel>
    void shiftRows(const std::atomic<bool> &isCancelled)
    {
        using Pixel = std::conditional_t<sizeof(Channel) == 1, uint32_t, uint64_t>;
        const auto shiftX = static_cast<int>(-toShot[2]);
        const auto shiftY = static_cast<int>(toShot[5]);
        parallel::rows(result.size(), [&](int begin, int end) {
            for (int y = begin; y < end && !isCancelled; ++y)
                copyRow<Pixel>(source, y + shiftY, shiftX, result, y);
        });
    }

    template <typename Channel, typename Resampler>
    void filterRows(const std::atomic<bool> &isCancelled)
    {
        const SourcePixels pixels{source.constBits(), size_t(source.bytesPerLine()), source.width(),
                                  source.height(), !source.hasAlphaChannel()};
        parallel::rows(result.size(), [&](int begin, int end) {
            Resampler resampler(pixels, toShot, result.width());
            for (int y = begin; y < end && !isCancelled; ++y)
                resampler.makeRow(y, reinterpret_cast<Channel *>(result.scanLine(y)));
        });
    }

    const QImage source;
    QImage result;
    const Matrix toShot;
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
