#pragma once

#include "adjust.h"
#include "fusion_options.h"
#include "radiance_options.h"
#include "shot_placement.h"
#include "taken_parts.h"

#include <QImage>
#include <QList>

#include <atomic>
#include <functional>
#include <vector>

/// From the decoded shots of a bracket to the picture worth keeping: aligns them, finds what moved,
/// fuses, adjusts. The one entry for the command line and the editor.
namespace exposure {

enum class Product {
    Picture, ///< for the screen, by fusion
    Light,   ///< the scene's, by radiance::merge
    Both     ///< from one registration and one search for what moved
};

enum class Ghosts {
    Keep,  ///< moving things are blended like all else
    Remove ///< each moving thing comes from one shot, whole
};

struct Options
{
    Product product = Product::Picture;
    Alignment alignment = Alignment::Perspective;
    /// Index of the shot that the others are aligned to; kAutomatic: referenceShot(), by shifts the
    /// first.
    int reference = kAutomatic;
    Ghosts ghosts = Ghosts::Remove;
    int ghostReference = kAutomatic; ///< index of the shot that moving things come from
    /// Of the moving things that are removed, those that come from other shots; places are those of
    /// the reference.
    std::vector<motion::ThingTake> things;
    /// Parts that come from one shot each, whatever else is done about ghosts, with masks of the
    /// reference's size; see motion::addTakes.
    std::vector<motion::Take> takes;
    bool crop = false;       ///< to the area that every shot covers
    fusion::Options weights; ///< of the fusion
    Look adjustment;         ///< of the fusion
    /// Of the radiance: for each shot, see radiance::Shot; or empty, when none is known.
    std::vector<double> exposures;
    radiance::Curve curve = radiance::Curve::Automatic; ///< of the radiance
};

enum class Step { Register, Resample, FindGhosts, Fuse };

/// The caller's hand on a running job. Neither is required.
struct Control
{
    const std::atomic<bool> *cancelled = nullptr; ///< ends the job within 100 ms
    std::function<void(Step, double)> progress;   ///< of a step, 0..1, on the calling thread
};

enum class Error {
    None,
    Cancelled,
    NoMemory,
    NoPictures, ///< none, one null, more than fusion::kMostShots, or exposures not one for each
    DifferentSizes,
    NothingCovered, ///< cropping leaves nothing
    NoSuchShot,     ///< a take or a thing is to come from a shot that is not there
    OtherMaskSize   ///< the mask of a take has not the shots' size
};

/// What was done, step by step.
struct Report
{
    int reference = 0;
    std::vector<registration::Transform> transforms; ///< onto the reference; one for each shot
    QRect area;                                      ///< of the reference that the picture shows
    bool hasGhosts = false;                          ///< something moved
    std::vector<double> exposures;  ///< of the radiance, as used; that of the reference is 1
    bool areExposuresKnown = false; ///< of the radiance: they were given
    bool isCurveRecovered = false;  ///< of the radiance: the shots told it
    qint64 registerMs = 0;          ///< resampling included
    qint64 ghostsMs = 0;
    qint64 fuseMs = 0; ///< of either method
};

struct Outcome
{
    /// Null unless error is None. Profile and resolution are the reference's; the radiance has
    /// linear light in the primaries of the first shot's profile instead.
    QImage picture;
    /// Of Both: the radiance of the same pixels, whose primaries are the picture's; else null.
    QImage light;
    QImage bounds; ///< of the radiance, see radiance::Result; null where all is measured
    /// What moved: Format_Grayscale8 of the picture's size, 255 where; null when nothing did.
    QImage ghosts;
    Report report;
    Error error = Error::None;
};

/// shots: 1 to fusion::kMostShots upright pictures of one size, 8 or 16 bits per channel; the job
/// takes them over and lets go of each as early as it can. The result has their depth:
/// Format_RGB32, or Format_RGBX64 when one of them has more than 8 bits; the radiance is in
/// Format_RGBX32FPx4.
/// Any thread, reentrant; uses all cores inside the call, which change no pixel. Throws nothing.
Outcome merge(QList<QImage> shots, const Options &options = {}, const Control &control = {});

} // namespace exposure
