#pragma once

#include "veskraw_export.h"

#include <QImage>
#include <QString>

#include <atomic>

class QWidget;

/// Converts camera raw files to pictures: camera white balance, upright, 8-bit sRGB, in
/// QImage::Format_RGB32. The exposure is kept as it was taken (no automatic brightness), so that
/// the pictures of a bracket stay apart.
///
/// A program of its own, vesk-raw-converter, runs LibRaw on each file, below limits of memory and
/// time: however it ends, the caller goes on and is told why there is no picture. Never throws.
///
/// A tool calls getInstance, activate and grabConvertedPicture, and nothing else of this class.
class VESKRAW_EXPORT VeskRaw
{
public:
    enum class Failure {
        None,
        NotRaw,      ///< no raw file that LibRaw knows
        Unreadable,  ///< the file cannot be opened
        Damaged,     ///< the file is
        TooLarge,    ///< more pixels than allowed
        NoMemory,    ///< not enough memory, or no threads to be had
        Library,     ///< LibRaw failed for another reason
        CannotStart, ///< the program is missing or cannot be started
        Ended,       ///< the program ended before it was done, or gave no sensible answer
        TimedOut,
        Cancelled
    };

    enum class ColourSpace { Srgb, AdobeRgb, ProPhotoRgb, DisplayP3 };

    struct Options
    {
        bool quick = false; ///< at half width and height, in a fraction of the time
        /// 8 gives QImage::Format_RGB32, 16 QImage::Format_RGBX64.
        int bitsPerChannel = 8;
        ColourSpace colourSpace = ColourSpace::Srgb;
        bool isLinear = false; ///< light itself, without the space's curve
        qint64 pixelLimit = 0; ///< as setPixelLimit, for this conversion alone; 0: that one
    };

    /// Outcome of a conversion: a picture, or a null picture and the reason, also in words for the
    /// user. A picture in another colour space than sRGB, or of linear light, is tagged so.
    struct Conversion
    {
        QImage picture;
        QString error;
        Failure failure = Failure::None;
    };

    /// Pixels that a picture may have unless somebody says otherwise: of all kinds, not only raw
    /// files, and in all rooms of the program.
    static constexpr qint64 kDefaultPixelLimit = 512LL * 1000 * 1000;
    static constexpr int kDefaultTimeLimitSeconds = 600;

    /// The one converter, created on first call and kept for the life of the process.
    static VeskRaw *getInstance();

    /// Converts the file at path and keeps the picture for grabConvertedPicture; a picture kept
    /// before is dropped. Blocks. parent is the window on whose behalf it runs (may be null; no
    /// window is opened over it so far). quick converts at half width and height, in a fraction of
    /// the time. One thread at a time.
    void activate(const QString &path, QWidget *parent, bool quick);
    /// The picture of the last activate, newly allocated and owned by the caller; null when the
    /// conversion failed or was cancelled, or the picture has been grabbed already.
    QImage *grabConvertedPicture();
    /// Why grabConvertedPicture gives null; empty and None after a success.
    QString lastError() const { return last.error; }
    Failure lastFailure() const { return last.failure; }
    /// Makes a running activate end without a picture, at once. Any thread. Without effect on later
    /// ones.
    void cancel();

    /// Pictures with more pixels than that are refused before memory is taken for them. This limit
    /// and the next hold for all conversions of the process that start later. Any thread.
    static void setPixelLimit(qint64 pixels);
    static qint64 pixelLimit();
    /// Bytes of address space for one conversion, the program itself included; the machine's
    /// memory by default. Any thread.
    static void setMemoryLimit(qint64 bytes);
    static qint64 memoryLimit();
    /// A conversion that takes longer is given up. Any thread.
    static void setTimeLimit(int seconds);
    static int timeLimit();
    /// Another program in the place of vesk-raw-converter, which is found beside the library; empty
    /// for that one again. For hosts that keep it elsewhere. Not while a conversion runs.
    static void setConverterProgram(const QString &path);

    /// The conversion itself, without the state above. Any thread, several at once. A conversion
    /// ends without a picture as soon as *cancelled (borrowed, may be null) has become true.
    static Conversion convert(const QString &path, bool quick = false,
                              const std::atomic<bool> *cancelled = nullptr);
    static Conversion convert(const QString &path, const Options &options,
                              const std::atomic<bool> *cancelled = nullptr);

private:
    VeskRaw() = default;

    Conversion last;
    std::atomic<bool> cancelled{false};
};
