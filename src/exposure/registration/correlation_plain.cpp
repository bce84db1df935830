#include "correlation.h"

int32_t registration::plain::dotProduct(const int16_t *a, const int16_t *b, size_t count)
{
    int32_t sum = 0;
    for (size_t i = 0; i < count; ++i)
        sum += a[i] * b[i];
    return sum;
}

void registration::plain::correlate(const CorrelationInput &input, int32_t *sums)
{
    for (size_t dy = 0; dy < input.offsets; ++dy) {
        for (size_t dx = 0; dx < input.offsets; ++dx) {
            int32_t sum = 0;
            for (size_t y = 0; y < input.side; ++y) {
                sum += dotProduct(input.tile + y * input.tileStride,
                                  input.patch + (y + dy) * input.patchStride + dx, input.side);
            }
            sums[dy * input.offsets + dx] = sum;
        }
    }
}
