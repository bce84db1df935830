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

int samplesPerPixel(const QImage &picture)
{
    return picture.hasAlphaChannel() ? 4 : 3;
}

void unpackRow(const QImage &picture, int y, unsigned char *bytes)
{
    const auto *words = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
    const bool hasAlpha = picture.hasAlphaChannel();
    for (const QRgb *word = words; word != words + picture.width(); ++word) {
        *bytes++ = static_cast<unsigned char>(qRed(*word));
        *bytes++ = static_cast<unsigned char>(qGreen(*word));
        *bytes++ = static_cast<unsigned char>(qBlue(*word));
        if (hasAlpha)
            *bytes++ = static_cast<unsigned char>(qAlpha(*word));
    }
}
