#pragma once

#include <QByteArray>
#include <QImage>

#include <memory>

class ColourTransform;

/// From the colours of one profile to those of another, for pictures that are shown: 8 bits, alpha
/// multiplied in. Any thread, several at once.
class ScreenConversion
{
public:
    /// ICC profiles; an empty one stands for sRGB.
    ScreenConversion(const QByteArray &from, const QByteArray &to);
    ~ScreenConversion();
    ScreenConversion(const ScreenConversion &) = delete;
    ScreenConversion &operator=(const ScreenConversion &) = delete;

    /// Nothing would change by a level, or the profiles do not meet.
    bool isIdentity() const;

    /// In place. picture: Format_ARGB32_Premultiplied.
    void apply(QImage &picture) const;

private:
    void applyToRow(QRgb *row, int width) const;

    std::unique_ptr<ColourTransform> transform;
};
