#pragma once

#include <cstddef>
#include <cstdint>

/// Takes numbers from the input, byte after byte; zeros when it is at its end.
class InputReader
{
public:
    InputReader(const uint8_t *data, size_t size)
        : next(data)
        , end(data + size)
    {
    }

    uint8_t byte() { return next < end ? *next++ : 0; }
    /// From low to high, both included; at most 65536 values.
    int between(int low, int high)
    {
        const int number = byte() | byte() << 8;
        return low + number % (high - low + 1);
    }

private:
    const uint8_t *next;
    const uint8_t *end;
};
