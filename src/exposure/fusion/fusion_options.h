#pragma once

#include <QImage>

#include <atomic>
#include <functional>

namespace fusion {

/// The most shots that are fused at a time.
constexpr size_t kMostShots = 64;

/// One shot of a bracket and where it may be used.
struct Shot
{
    QImage picture;
    /// Null, or Format_Grayscale8 of halfSize(picture.size()): 255 where the shot may be used, 0
    /// where not, in between a soft edge. Where all shots have 0, all count alike.
    QImage mask;
};

/// What a shot's pixels count by; neutral values give the default fusion.
/// Ranges: 0 to 4 for the weights; values beyond are taken as the nearest within.
struct Options
{
    double exposureWeight = 1.0;   ///< how much a middle exposure counts
    double contrastWeight = 1.0;   ///< how much local contrast counts
    double saturationWeight = 0.0; ///< how much vivid colours count

    bool isNeutral() const
    {
        return exposureWeight == 1.0 && contrastWeight == 1.0 && saturationWeight == 0.0;
    }
};

/// The caller's hand on a running fusion. Neither is required.
struct Control
{
    const std::atomic<bool> *cancelled = nullptr; ///< looked at every few milliseconds
    std::function<void(double)> progress;         ///< gets 0..1, growing, on the calling thread
};

enum class Status { Done, Cancelled, OutOfMemory, BadShots };

struct Result
{
    QImage picture; ///< null unless done
    Status status = Status::BadShots;
};

/// The size of the next smaller level of a pyramid, and of masks: half, rounded up.
inline QSize halfSize(QSize size)
{
    return {(size.width() + 1) / 2, (size.height() + 1) / 2};
}

} // namespace fusion
