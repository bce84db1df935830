#pragma once

#include <QColor>

/// The weight of a pixel in the merge: exp(-d * d) in single precision, d being the distance of its
/// HSL lightness (0..1) from 0.5. From about 0.7788 for black and white to 1 for mid-grey.
///
/// Lightness is counted in 16-bit steps, in double precision, as Qt's QColor did before it went
/// over to single precision. Which way it rounds half a step does not follow
/// from the sum of the largest and the smallest channel. But it follows from the two themselves, so
/// a table over both holds every weight there is.
namespace weights {

/// Weight of one colour; alpha is ignored.
float of(QRgb color);

/// Place of a weight in the table, by chroma and smallest channel: the colours of a photograph,
/// most of them not far from grey, then lie close together.
constexpr int index(int largestChannel, int smallestChannel)
{
    return (largestChannel - smallestChannel) << 8 | smallestChannel;
}

/// The weights at index(largest, smallest), largest >= smallest; 65536 entries. Never freed.
const float *table();

} // namespace weights
