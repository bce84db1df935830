#include "shot_placement.h"

#include "mtb_shifts.h"
#include "reference_shot.h"
#include "resample.h"

namespace exposure {
namespace {

using registration::Kind;
using registration::Transform;

/// By shifts all lie on the first, as the tool does it.
int referenceOf(const QList<QImage> &shots, const PlacementOptions &options)
{
    if (options.reference >= 0)
        return options.reference;
    return options.alignment == Alignment::Shift ? 0 : referenceShot(shots);
}

Transform unmoved()
{
    return {Kind::Identity, registration::identityMatrix(), 1.0, 0.0, registration::Reason::None};
}

/// The tool's shifts, onto its first picture; from there onto the reference.
void takeShifts(const QList<QImage> &shots, registration::Result &placement)
{
    QList<QImage> copies = shots; // which share their pixels
    QList<QImage *> pointers;
    for (QImage &shot : copies)
        pointers += &shot;
    std::vector<QPoint> summed = mtb::summedShifts(mtb::pairShifts(pointers));
    summed.insert(summed.begin(), QPoint());
    const QPoint origin = summed[size_t(placement.reference)];
    for (size_t i = 0; i < summed.size(); ++i) {
        const QPoint shift = summed[i] - origin;
        placement.transforms[i].matrix = registration::shiftMatrix(shift.x(), shift.y());
        if (!shift.isNull())
            placement.transforms[i].kind = Kind::Shift;
    }
}

} // namespace

registration::Result placed(const QList<QImage> &shots, const PlacementOptions &options)
{
    registration::Result placement;
    placement.outcome = registration::Outcome::Done;
    placement.reference = referenceOf(shots, options);
    if (shots.size() > 1 && options.alignment == Alignment::Perspective) {
        registration::Options how;
        how.reference = placement.reference;
        how.onProgress = options.progress;
        how.isCancelled = options.cancelled;
        return registration::registerShots(shots, how);
    }
    placement.transforms.assign(size_t(shots.size()), unmoved());
    if (shots.size() > 1 && options.alignment == Alignment::Shift)
        takeShifts(shots, placement);
    return placement;
}

QRect areaOfAll(const registration::Result &placement, QSize size)
{
    return registration::commonArea(placement.transforms,
                                    std::vector<QSize>(placement.transforms.size(), size), size);
}

QImage laidOver(const QImage &shot, const registration::Transform &transform, QRect area,
                const std::atomic<bool> *cancelled)
{
    const QImage whole = registration::resample(shot, transform, shot.size(), cancelled);
    return whole.isNull() || area.size() == shot.size() ? whole : whole.copy(area);
}

} // namespace exposure
