#include "mean_rows.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "mean_rows.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace picture_mean {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

template <class D, typename Value>
HWY_INLINE void addAt(D floats, const Value *const *rows, const float *shares, size_t rowCount,
                      size_t i, float *sums)
{
    const hn::RebindToSigned<D> integers;
    const hn::Rebind<Value, D> values;
    auto sum = hn::LoadU(floats, sums + i);
    for (size_t row = 0; row < rowCount; ++row) {
        const auto value =
            hn::ConvertTo(floats, hn::PromoteTo(integers, hn::LoadU(values, rows[row] + i)));
        sum = hn::Add(sum, hn::Mul(hn::Set(floats, shares[row]), value));
    }
    hn::StoreU(sum, floats, sums + i);
}

template <typename Value>
void addAll(const Value *const *rows, const float *shares, size_t rowCount, size_t valueCount,
            float *sums)
{
    const hn::ScalableTag<float> vector;
    const hn::CappedTag<float, 1> single;
    const size_t lanes = hn::Lanes(vector);
    size_t i = 0;
    for (; i + lanes <= valueCount; i += lanes)
        addAt(vector, rows, shares, rowCount, i, sums);
    for (; i < valueCount; ++i)
        addAt(single, rows, shares, rowCount, i, sums);
}

void addBytes(const uint8_t *const *rows, const float *shares, size_t rowCount, size_t valueCount,
              float *sums)
{
    addAll(rows, shares, rowCount, valueCount, sums);
}

void addWords(const uint16_t *const *rows, const float *shares, size_t rowCount, size_t valueCount,
              float *sums)
{
    addAll(rows, shares, rowCount, valueCount, sums);
}

/// Those channels of a pixel that fill the lanes. sums: that of the row's first pixel.
template <size_t kChannels, class D, typename Value>
HWY_INLINE void addSpan(D floats, const float *sums, const picture::PixelSpan &span, float weight,
                        Value *pixel)
{
    const hn::RebindToSigned<D> integers;
    const hn::Rebind<Value, D> values;
    const auto top = hn::Set(floats, float(hwy::HighestValue<Value>()));
    const float *at = sums + kChannels * size_t(span.first);
    const float *const last = sums + kChannels * size_t(span.last);
    auto sum = hn::Mul(hn::Set(floats, span.firstShare), hn::LoadU(floats, at));
    for (at += kChannels; at < last; at += kChannels)
        sum = hn::Add(sum, hn::LoadU(floats, at));
    sum = hn::Add(sum, hn::Mul(hn::Set(floats, span.lastShare), hn::LoadU(floats, last)));
    const auto mean = hn::Min(hn::Mul(sum, hn::Set(floats, weight)), top);
    const auto rounded = hn::ConvertTo(integers, hn::Add(mean, hn::Set(floats, 0.5F)));
    hn::StoreU(hn::DemoteTo(values, rounded), values, pixel);
}

template <size_t kChannels, typename Value>
HWY_INLINE void addSpans(const float *sums, const picture::PixelSpan *spans, size_t spanCount,
                         float weight, Value *pixels)
{
    const hn::CappedTag<float, kChannels> floats;
    const size_t lanes = hn::Lanes(floats);
    for (size_t i = 0; i < spanCount; ++i) {
        for (size_t channel = 0; channel < kChannels; channel += lanes)
            addSpan<kChannels>(floats, sums + channel, spans[i], weight,
                               pixels + kChannels * i + channel);
    }
}

template <typename Value>
HWY_INLINE void addSpansOf(int channels, const float *sums, const picture::PixelSpan *spans,
                           size_t spanCount, float weight, Value *pixels)
{
    if (channels == 1)
        addSpans<1>(sums, spans, spanCount, weight, pixels);
    else
        addSpans<4>(sums, spans, spanCount, weight, pixels);
}

void byteColumns(const float *sums, const picture::PixelSpan *spans, size_t spanCount, int channels,
                 float weight, uint8_t *pixels)
{
    addSpansOf(channels, sums, spans, spanCount, weight, pixels);
}

void wordColumns(const float *sums, const picture::PixelSpan *spans, size_t spanCount, int channels,
                 float weight, uint16_t *pixels)
{
    addSpansOf(channels, sums, spans, spanCount, weight, pixels);
}

} // namespace HWY_NAMESPACE
} // namespace picture_mean
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace picture_mean {
HWY_EXPORT(addBytes);
HWY_EXPORT(addWords);
HWY_EXPORT(byteColumns);
HWY_EXPORT(wordColumns);
} // namespace picture_mean

void picture::addRows(const uint8_t *const *rows, const float *shares, size_t rowCount,
                      size_t valueCount, float *sums)
{
    HWY_DYNAMIC_DISPATCH(picture_mean::addBytes)(rows, shares, rowCount, valueCount, sums);
}

void picture::addRows(const uint16_t *const *rows, const float *shares, size_t rowCount,
                      size_t valueCount, float *sums)
{
    HWY_DYNAMIC_DISPATCH(picture_mean::addWords)(rows, shares, rowCount, valueCount, sums);
}

void picture::addColumns(const float *sums, const PixelSpan *spans, size_t spanCount, int channels,
                         float weight, uint8_t *pixels)
{
    HWY_DYNAMIC_DISPATCH(picture_mean::byteColumns)
    (sums, spans, spanCount, channels, weight, pixels);
}

void picture::addColumns(const float *sums, const PixelSpan *spans, size_t spanCount, int channels,
                         float weight, uint16_t *pixels)
{
    HWY_DYNAMIC_DISPATCH(picture_mean::wordColumns)
    (sums, spans, spanCount, channels, weight, pixels);
}

#endif
