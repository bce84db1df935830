#pragma once

#include "MatrixShaper.h"
#include "little_cms.h"

#include <QByteArray>
#include <QImage>

#include <optional>
#include <vector>

/// The way from the colours of one ICC profile to those of another, by Little CMS. Relative
/// colorimetric with black point compensation: colours that both spaces hold keep their look, white
/// stays white, and the shadows of a space with a lighter black are not cut off; the perceptual
/// intent would change all colours, each profile in its own manner, and RGB profiles have none.
///
/// An empty or unsound profile (see colour_profile) counts as sRGB, for grey pixels as sRGB's grey.
/// Inks without a sound profile are not for this class. Const calls on any thread, at once.
class ColourTransform
{
public:
    enum class Pixels {
        Words8,        ///< QRgb: Format_RGB32, Format_ARGB32
        Words16,       ///< QRgba64: Format_RGBX64, Format_RGBA64
        Grey8,         ///< quint8
        Grey16,        ///< quint16
        Inks8,         ///< cyan, magenta, yellow, black; 255 is full
        InvertedInks8, ///< 0 is full
        Inks16,        ///< 65535 is full
        LabFloat       ///< L* 0..100, a* and b* about -128..127, for D50; has no profile
    };

    struct Colours
    {
        QByteArray profile;
        Pixels pixels = Pixels::Words8;
    };

    /// to: Words8 or Words16.
    ColourTransform(const Colours &from, const Colours &to);

    /// True when memory is lacking or the profiles do not meet; then nothing may be converted.
    bool isNull() const { return !transform; }
    /// True when no level of words or grey changes by half a level of 8 bits or more: two profiles
    /// may describe one space in other bytes. Who asks saves the work.
    bool isIdentity() const { return identity; }

    /// count pixels. Alpha is kept between words, otherwise 255 or 65535. from and to may be the
    /// same row when their pixels are of one kind, else they must not overlap.
    void convertRow(const void *from, void *to, int count) const;

    enum class Outcome { Unchanged, Converted, Failed };

    /// Brings the picture from its own profile (none: sRGB) to that one and tags it so, in words of
    /// its depth; its pixels and their format stay untouched when the two are as good as equal.
    /// After a failure, for lack of memory, the picture is null. All cores.
    static Outcome bring(QImage &picture, const QByteArray &profile);

private:
    void create(const Colours &from, const Colours &to);
    void fillGreyTable();
    void setGreyTable(const std::vector<QRgba64> &words);
    bool keepsColours(const little_cms::Profile &from, const little_cms::Profile &to) const;

    little_cms::Context context;
    little_cms::Transform transform;
    std::optional<MatrixShaper> shaper;
    QByteArray greyTable; ///< the words of all levels; empty unless from grey
    Pixels source;
    Pixels target;
    bool identity = false;
};
