#include "area_mean.h"

#include "parallel_rows.h"

#include <QColorSpace>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr int kChannels = 4;
constexpr int kRowsAtATime = 16;

/// The pixels under one of the smaller picture, along one direction.
struct Span
{
    int first;
    int last;
    float firstShare; ///< of the pixel that is covered; all between the ends are whole
    float lastShare;  ///< none where there is only one
};

std::vector<Span> spans(int from, int to)
{
    const double step = double(from) / to;
    std::vector<Span> all;
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

template <typename Channel>
void add(const Channel *values, float share, size_t count, float *sums)
{
    for (size_t i = 0; i < count; ++i)
        sums[i] += share * float(values[i]);
}

/// The rows of a span, added up channel by channel.
template <typename Channel>
void addRows(const QImage &picture, const Span &span, std::vector<float> &sums)
{
    std::fill(sums.begin(), sums.end(), 0.0F);
    const auto addRow = [&](int y, float share) {
        const auto *row = reinterpret_cast<const Channel *>(picture.constScanLine(y));
        add(row, share, sums.size(), sums.data());
    };
    addRow(span.first, span.firstShare);
    for (int y = span.first + 1; y < span.last; ++y)
        addRow(y, 1);
    if (span.last > span.first)
        addRow(span.last, span.lastShare);
}

/// Across the sums of rows; weight: 1 / area of a span.
template <typename Channel>
void addColumns(const std::vector<float> &sums, const std::vector<Span> &columns, float weight,
                Channel *out)
{
    constexpr float kTop = std::numeric_limits<Channel>::max(); // sums of very many are rounded
    for (const Span &span : columns) {
        float mean[kChannels] = {};
        add(&sums[size_t(span.first) * kChannels], span.firstShare, kChannels, mean);
        for (int x = span.first + 1; x < span.last; ++x)
            add(&sums[size_t(x) * kChannels], 1, kChannels, mean);
        add(&sums[size_t(span.last) * kChannels], span.lastShare, kChannels, mean);
        for (int channel = 0; channel < kChannels; ++channel)
            *out++ = Channel(std::min(mean[channel] * weight, kTop) + 0.5F);
    }
}

template <typename Channel>
void reduce(const QImage &picture, QImage &small)
{
    const std::vector<Span> columns = spans(picture.width(), small.width());
    const std::vector<Span> rows = spans(picture.height(), small.height());
    const double area = double(picture.width()) / small.width() * picture.height() / small.height();
    uchar *const bits = small.bits();
    const qsizetype rowBytes = small.bytesPerLine();
    parallel::each((small.height() + kRowsAtATime - 1) / kRowsAtATime, [&](int part) {
        std::vector<float> sums(size_t(picture.width()) * kChannels);
        const int end = std::min(small.height(), (part + 1) * kRowsAtATime);
        for (int y = part * kRowsAtATime; y < end; ++y) {
            addRows<Channel>(picture, rows[size_t(y)], sums);
            addColumns(sums, columns, float(1 / area),
                       reinterpret_cast<Channel *>(bits + y * rowBytes));
        }
    });
}

} // namespace

QImage picture::areaMean(const QImage &picture, QSize size)
{
    if (picture.isNull() || size.isEmpty())
        return {};
    const QImage::Format format = picture.format();
    const bool isDeep =
        format == QImage::Format_RGBX64 || format == QImage::Format_RGBA64_Premultiplied;
    const bool isTaken =
        isDeep || format == QImage::Format_RGB32 || format == QImage::Format_ARGB32_Premultiplied;
    if (!isTaken || size.width() > picture.width() || size.height() > picture.height())
        return picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (size == picture.size())
        return picture;
    QImage small(size, format);
    if (small.isNull())
        return {};
    if (isDeep)
        reduce<quint16>(picture, small);
    else
        reduce<quint8>(picture, small);
    small.setColorSpace(picture.colorSpace());
    small.setDotsPerMeterX(picture.dotsPerMeterX());
    small.setDotsPerMeterY(picture.dotsPerMeterY());
    return small;
}
