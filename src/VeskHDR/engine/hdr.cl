// Lightness-weighted mean of several pictures, per pixel: equal to mergeExposures in every bit, on
// every device with IEEE single precision that rounds to nearest (OpenCL's full profile).
//
// What a device may compute differently is not used. There is no exp: the weights come from a
// table. Nothing is fused that is not written as fma. The division, which may be 2.5 units in the
// last place off, only proposes a result, which an exact remainder then confirms or corrects.

#pragma OPENCL FP_CONTRACT OFF

// kWeights: two weights, as the bits of floats, for each sum (0..510) of a pixel's largest and
// smallest channel. kSecondWeight: which of the two, a bit for each pair (see weightOf).
#include "merge_weights.clh"

// The weight follows the lightness, which is rounded to 16 bits: where the sum of the two channels
// is odd, it depends on the pair which way the tie goes.
float weightOf(uint4 pixel)
{
    const uint largest = max(max(pixel.x, pixel.y), pixel.z);
    const uint smallest = min(min(pixel.x, pixel.y), pixel.z);
    const uint pair = largest * (largest + 1u) / 2u + smallest;
    const uint second = kSecondWeight[pair / 32u] >> (pair % 32u) & 1u;
    return as_float(kWeights[2u * (largest + smallest) + second]);
}

// The quotient rounded to nearest and then truncated, as the processor does it: a quotient that is
// less than half a unit in the last place below a whole number becomes that number.
// sum / weight must lie in 0..255.5, and weight be 0.5 or more.
uchar truncatedQuotient(float sum, float weight)
{
    const int candidate = max((int)(sum / weight + 0.5f), 1);
    const float whole = (float)candidate;
    const float unitBelow = whole - as_float(as_uint(whole) - 1u);
    const float remainder = fma(-whole, weight, sum); // exact wherever it decides
    return (uchar)(remainder >= -0.5f * unitBelow * weight ? candidate : candidate - 1);
}

// merged: width x rows pixels. pictures: count such pictures, one after the other. A pixel is four
// bytes: blue, green, red, alpha; the merged alpha is 255. Items outside of the picture idle.
__kernel void simpleHDRoclKerneluchar(__global uchar4 *merged, __global const uchar4 *pictures,
                                      int width, int rows, int count)
{
    const int x = (int)get_global_id(0);
    const int y = (int)get_global_id(1);
    if (x >= width || y >= rows)
        return;

    const int index = y * width + x;
    float4 sum = (float4)(0.0f);
    float weightSum = 0.0f;
    for (int picture = 0; picture < count; ++picture) {
        const uint4 pixel = convert_uint4(pictures[picture * width * rows + index]);
        const float weight = weightOf(pixel);
        sum += convert_float4(pixel) * weight;
        weightSum += weight;
    }
    merged[index] =
        (uchar4)(truncatedQuotient(sum.x, weightSum), truncatedQuotient(sum.y, weightSum),
                 truncatedQuotient(sum.z, weightSum), 255);
}
