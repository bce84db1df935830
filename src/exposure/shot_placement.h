#pragma once

#include "registration.h"

#include <QImage>
#include <QList>
#include <QRect>

/// How the shots of a set are laid over one of them, for all that is done with them afterwards.
namespace exposure {

enum class Alignment {
    None,
    Shift,      ///< whole pixels, as the "Merge to HDR" tool finds them
    Perspective ///< the least motion that explains each shot
};

constexpr int kAutomatic = -1;

struct PlacementOptions
{
    Alignment alignment = Alignment::Perspective;
    /// Index of the shot that the others are aligned to; kAutomatic: referenceShot(), by shifts the
    /// first.
    int reference = kAutomatic;
    std::function<void(double)> progress;         ///< 0..1, on the calling thread; may be empty
    const std::atomic<bool> *cancelled = nullptr; ///< ends the call within 100 ms
};

/// shots: one or more of one size, not null; borrowed for the call. transforms of the result: onto
/// the reference, one for each shot; empty unless the outcome is Done. Any thread, reentrant; uses
/// all cores inside the call, which change nothing. Throws std::bad_alloc.
registration::Result placed(const QList<QImage> &shots, const PlacementOptions &options);

/// What all shots of this size cover once they are placed, for cropping; see
/// registration::commonArea.
QRect areaOfAll(const registration::Result &placement, QSize size);

/// The shot where its transform has it, cut to that area of the reference; see
/// registration::resample. Null when memory is lacking or the call was cancelled.
QImage laidOver(const QImage &shot, const registration::Transform &transform, QRect area,
                const std::atomic<bool> *cancelled = nullptr);

} // namespace exposure
