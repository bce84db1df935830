#include "area_mean.h"

#include "mean_rows.h"
#include "parallel_rows.h"

#include <QColorSpace>

#include <hwy/cache_control.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

constexpr size_t kFetchedBytes = 1024;
constexpr size_t kCacheLine = 64;
constexpr int kRowsAtATime = 16; // also of what is made by one thread, before it takes more

using picture::PixelSpan;

bool isDeep(QImage::Format format)
{
    return format == QImage::Format_RGBX64 || format == QImage::Format_RGBA64_Premultiplied ||
           format == QImage::Format_Grayscale16;
}

size_t channelsOf(QImage::Format format)
{
    return format == QImage::Format_Grayscale8 || format == QImage::Format_Grayscale16 ? 1 : 4;
}

/// Of each pixel of a smaller picture, along one direction.
std::vector<PixelSpan> spans(int from, int to)
{
    const double step = double(from) / to;
    std::vector<PixelSpan> all;
    all.reserve(size_t(to));
    for (int i = 0; i < to; ++i) {
        const double begin = i * step;
        const double end = std::min(double(from), (i + 1) * step);
        const int first = std::min(int(begin), from - 1);
        const int last = std::clamp(int(std::ceil(end)) - 1, first, from - 1);
        const double lastShare = first == last ? 0 : end - last;
        const double firstShare = first == last ? end - begin : first + 1 - begin;
        all.push_back({first, last, float(firstShare), float(lastShare)});
    }
    return all;
}

/// The rows of spans, added up channel by channel. For one thread.
template <typename Channel>
class RowSums
{
public:
    RowSums(const picture::PixelSource &pixelSource, const QRect &area)
        : source(pixelSource)
        , part(area)
        , channels(channelsOf(pixelSource.model.format()))
        , sums(size_t(area.width()) * channels)
    {
    }

    const float *of(const PixelSpan &span)
    {
        std::fill(sums.begin(), sums.end(), 0.0F);
        for (int y = span.first; y <= span.last; y += kRowsAtATime)
            add(span, y, std::min(span.last, y + kRowsAtATime - 1));
        return sums.data();
    }

private:
    /// Columns where the runs of all rows go on.
    struct Piece
    {
        std::array<const Channel *, kRowsAtATime> rows;
        int begin;
        int end;
    };

    void add(const PixelSpan &span, int first, int last)
    {
        std::array<float, kRowsAtATime> shares;
        for (int y = first; y <= last; ++y)
            shares[size_t(y - first)] = y == span.first  ? span.firstShare
                                        : y == span.last ? span.lastShare
                                                         : 1;
        const int end = part.x() + part.width();
        for (Piece piece = pieceFrom(part.x(), first, last); piece.begin < end;) {
            const Piece next = pieceFrom(piece.end, first, last);
            picture::addRows(piece.rows.data(), shares.data(), size_t(last - first + 1),
                             size_t(piece.end - piece.begin) * channels,
                             &sums[size_t(piece.begin - part.x()) * channels]);
            piece = next;
        }
    }

    Piece pieceFrom(int x, int first, int last) const
    {
        Piece piece{{}, x, part.x() + part.width()};
        for (int y = first; y <= last && x < piece.end; ++y) {
            const picture::PixelRun run = source.run(x, part.y() + y);
            piece.rows[size_t(y - first)] = reinterpret_cast<const Channel *>(run.pixels);
            piece.end = std::min(piece.end, run.end);
            fetch(run.pixels, size_t(run.end - x) * channels * sizeof(Channel));
        }
        return piece;
    }

    /// Short runs end before the processor knows where they go.
    static void fetch(const uchar *pixels, size_t bytes)
    {
        for (size_t i = 0; i < std::min(bytes, kFetchedBytes); i += kCacheLine)
            hwy::Prefetch(pixels + i);
    }

    const picture::PixelSource &source;
    const QRect part;
    const size_t channels;
    std::vector<float> sums;
};

template <typename Channel>
void reduce(const picture::PixelSource &source, const QRect &part, QImage &small)
{
    const QSize size = part.size();
    const std::vector<PixelSpan> columns = spans(size.width(), small.width());
    const std::vector<PixelSpan> rows = spans(size.height(), small.height());
    const double area = double(size.width()) / small.width() * size.height() / small.height();
    const int channels = int(channelsOf(small.format()));
    uchar *const bits = small.bits();
    const qsizetype rowBytes = small.bytesPerLine();
    parallel::each((small.height() + kRowsAtATime - 1) / kRowsAtATime, [&](int band) {
        RowSums<Channel> sums(source, part);
        const int end = std::min(small.height(), (band + 1) * kRowsAtATime);
        for (int y = band * kRowsAtATime; y < end; ++y) {
            picture::addColumns(sums.of(rows[size_t(y)]), columns.data(), columns.size(), channels,
                                float(1 / area), reinterpret_cast<Channel *>(bits + y * rowBytes));
        }
    });
}

} // namespace

bool picture::isTakenFromRuns(QImage::Format format)
{
    return isDeep(format) || format == QImage::Format_RGB32 ||
           format == QImage::Format_ARGB32_Premultiplied || format == QImage::Format_Grayscale8;
}

QImage picture::areaMean(const QImage &picture, QSize size)
{
    return areaMean(picture, picture.rect(), size);
}

QImage picture::areaMean(const QImage &picture, const QRect &area, QSize size)
{
    if (picture.isNull() || size.isEmpty())
        return {};
    const bool isLarger = size.width() > area.width() || size.height() > area.height();
    if (size == area.size() || isLarger || !isTakenFromRuns(picture.format())) {
        const QImage cut = area == picture.rect() ? picture : picture.copy(area);
        return size == area.size()
                   ? cut
                   : cut.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    const auto run = [&picture](int x, int y) {
        return PixelRun{picture.constScanLine(y) + qsizetype(x) * picture.depth() / 8,
                        picture.width()};
    };
    return areaMean(PixelSource{picture, run}, area, size);
}

QImage picture::areaMean(const PixelSource &source, const QRect &area, QSize size)
{
    const QImage &model = source.model;
    QImage small(size, model.format());
    if (small.isNull())
        return {};
    if (isDeep(model.format()))
        reduce<quint16>(source, area, small);
    else
        reduce<quint8>(source, area, small);
    small.setColorSpace(model.colorSpace());
    small.setDotsPerMeterX(model.dotsPerMeterX());
    small.setDotsPerMeterY(model.dotsPerMeterY());
    return small;
}
