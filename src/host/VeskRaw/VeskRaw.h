#pragma once

#include "veskraw_export.h"

#include <QImage>
#include <QString>

#include <atomic>

class QWidget;

/// Converts camera raw files to pictures: camera white balance, upright, 8-bit sRGB, in
/// QImage::Format_RGB32. The exposure is kept as it was taken (no automatic brightness), so that
/// the pictures of a bracket stay apart. Never throws; memory is released on every path.
class VESKRAW_EXPORT VeskRaw
{
public:
    /// Outcome of a conversion: a picture, or a null picture and the reason in words.
    struct Conversion
    {
        QImage picture;
        QString error;
    };

    /// Pixels that a picture may have unless somebody says otherwise: of all kinds, not only raw
    /// files, and in all rooms of the program.
    static constexpr qint64 kDefaultPixelLimit = 512LL * 1000 * 1000;

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
    /// Why grabConvertedPicture gives null, in words; empty after a success.
    QString lastError() const { return error; }
    /// Makes a running activate end without a picture, soon. Any thread. Without effect on later
    /// ones.
    void cancel();

    /// Pictures with more pixels than that are refused before memory is taken for them. The limit
    /// holds for all conversions of the process. Any thread.
    static void setPixelLimit(qint64 pixels);
    static qint64 pixelLimit();

    /// The conversion itself, without the state above. Any thread, several at once. A conversion
    /// ends without a picture soon after *cancelled (borrowed, may be null) has become true.
    static Conversion convert(const QString &path, bool quick = false,
                              const std::atomic<bool> *cancelled = nullptr);

private:
    VeskRaw() = default;

    QImage picture;
    QString error;
    std::atomic<bool> cancelled{false};
};
