#pragma once

#include "taken_parts.h"

#include <QImage>

#include <atomic>
#include <functional>
#include <vector>

/// Finds what moved between the shots of a bracket, so that each moving thing is taken from one
/// shot, whole. docs/fusion.md has the method, which follows the consistency test of K. Ma and
/// others, "Robust Multi-Exposure Image Fusion: A Structural Patch Decomposition Approach", IEEE
/// Transactions on Image Processing 26(5), 2017, section III-C, and the regions of F. Pece and
/// J. Kautz, "Bitmap Movement Detection", CVMP 2010.
namespace motion {

/// The shot that moving things come from is chosen for each of them.
constexpr int kAutomatic = -1;

struct Control
{
    const std::atomic<bool> *cancelled = nullptr; ///< looked at every few milliseconds
    std::function<void(double)> progress;         ///< gets 0..1, growing, on the calling thread
};

enum class Status { Done, Cancelled, OutOfMemory, BadShots };

struct Result
{
    /// One for each shot: null where all of it may be used, else Format_Grayscale8 of half its
    /// size, rounded up: 255 where the shot may be used, 0 where not, in between a soft edge.
    std::vector<QImage> masks;
    QImage found; ///< as the masks: 255 where something moved; null where nothing did
    Status status = Status::BadShots;
};

/// shots: 2 to 64 of one size, in any format and order; borrowed for the call. A pixel that is not
/// opaque is not looked at. reference: the shot that all moving things come from, or kAutomatic;
/// things: those that come from others, as far as something moved there; of several for one thing
/// the last counts.
/// Throws nothing. Any thread, reentrant; uses all cores inside the call.
Result find(const std::vector<QImage> &shots, int reference = kAutomatic,
            const Control &control = {}, const std::vector<ThingTake> &things = {});

} // namespace motion
