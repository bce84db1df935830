#pragma once

#include "ColourTransform.h"

#include <QByteArray>
#include <QImage>

#include <vector>

/// Turns rows of inks or of Lab, as files store them, to words of sRGB. Inks without a sound
/// profile are multiplied: what the colour's ink and the black let through, as everybody does.
/// One thread at a time.
class ForeignColours
{
public:
    enum class Kind {
        Inks,         ///< cyan, magenta, yellow, black; the largest number is full
        InvertedInks, ///< 0 is full; 8 bits only
        CieLab,       ///< a* and b* with sign
        IccLab        ///< a* and b* moved up by half of the range
    };

    struct Source
    {
        Kind kind = Kind::Inks;
        int bits = 8;     ///< or 16
        int channels = 4; ///< of each pixel; those behind the colours are passed over
        QByteArray profile;
    };

    /// words: Format_RGB32 or, of 16 bits or Lab, Format_RGBX64. Throws std::bad_alloc.
    ForeignColours(const Source &source, QImage::Format words);

    /// count pixels.
    void convertRow(const uchar *numbers, uchar *words, int count);

private:
    bool isLab() const { return source.kind == Kind::CieLab || source.kind == Kind::IccLab; }
    ColourTransform::Pixels pixels() const;
    const void *packed(const uchar *numbers, int count);
    template <typename Number>
    void fillLab(const uchar *numbers, int count);
    void multiply(const void *inks, uchar *words, int count) const;

    const Source source;
    const QImage::Format format;
    const ColourTransform way;
    std::vector<uchar> inkRow;
    std::vector<float> labRow;
};
