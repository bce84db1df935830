#include "encoders.h"

bool writeAll(QIODevice &device, const void *bytes, qint64 length)
{
    const auto *next = static_cast<const char *>(bytes);
    while (length > 0) {
        const qint64 written = device.write(next, length);
        if (written <= 0)
            return false;
        next += written;
        length -= written;
    }
    return true;
}
