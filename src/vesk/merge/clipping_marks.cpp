#include "clipping_marks.h"

#include <QRgba64>

#include <algorithm>

namespace {

constexpr QRgb kTooBright = 0xffff2020;
constexpr QRgb kTooDark = 0xff2040ff;

QRgb markOf(int red, int green, int blue, int most)
{
    if (std::max({red, green, blue}) == most)
        return kTooBright;
    return std::max({red, green, blue}) == 0 ? kTooDark : 0;
}

void markRow(const QRgb *row, QRgb *marks, int width)
{
    for (int x = 0; x < width; ++x)
        marks[x] = markOf(qRed(row[x]), qGreen(row[x]), qBlue(row[x]), 0xff);
}

void markRow(const QRgba64 *row, QRgb *marks, int width)
{
    for (int x = 0; x < width; ++x)
        marks[x] = markOf(row[x].red(), row[x].green(), row[x].blue(), 0xffff);
}

} // namespace

QImage clipping::marks(const QImage &picture)
{
    const bool isDeep = picture.format() == QImage::Format_RGBX64;
    if (!isDeep && picture.format() != QImage::Format_RGB32)
        return {};
    QImage made(picture.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < picture.height() && !made.isNull(); ++y) {
        auto *marks = reinterpret_cast<QRgb *>(made.scanLine(y));
        const uchar *row = picture.constScanLine(y);
        if (isDeep)
            markRow(reinterpret_cast<const QRgba64 *>(row), marks, picture.width());
        else
            markRow(reinterpret_cast<const QRgb *>(row), marks, picture.width());
    }
    return made;
}
