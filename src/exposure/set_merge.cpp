#include "set_merge.h"

#include "merge_pictures.h"
#include "picture_set.h"

#include <new>

namespace exposure {
namespace {

bool isCancelled(const Control &control)
{
    return control.cancelled && *control.cancelled;
}

Outcome failed(Error error)
{
    Outcome outcome;
    outcome.error = error;
    return outcome;
}

Outcome fuseSet(QList<QImage> &&shots, const Options &options, const Control &control)
{
    if (picture_set::bringToFirst(shots).isMemoryShort)
        return failed(Error::NoMemory);
    return merge(std::move(shots), options, control);
}

Error errorOf(merge::Error error)
{
    switch (error) {
    case merge::Error::None:
        return Error::None;
    case merge::Error::NoPictures:
        return Error::NoPictures;
    case merge::Error::DifferentSizes:
        return Error::DifferentSizes;
    case merge::Error::NoMemory:
        break;
    }
    return Error::NoMemory;
}

registration::Transform shifted(QPoint by)
{
    const auto kind = by.isNull() ? registration::Kind::Identity : registration::Kind::Shift;
    return {kind, registration::shiftMatrix(by.x(), by.y()), 1.0, 0.0, registration::Reason::None};
}

Report reportOf(const merge::Outcome &merged, int count, QSize size)
{
    Report report;
    report.area = QRect(QPoint(), size);
    report.transforms.assign(size_t(count), shifted({}));
    for (size_t i = 0; i < merged.summedShifts.size(); ++i) {
        report.transforms[i + 1] = shifted(merged.summedShifts[i]);
        report.area &= QRect(merged.summedShifts[i], size);
    }
    return report;
}

/// The pictures are the tool's to delete.
class OwnedPictures
{
public:
    explicit OwnedPictures(QList<QImage> &&shots)
    {
        for (QImage &shot : shots)
            list.append(new QImage(std::move(shot)));
    }
    ~OwnedPictures() { qDeleteAll(list); }
    OwnedPictures(const OwnedPictures &) = delete;
    OwnedPictures &operator=(const OwnedPictures &) = delete;

    QList<QImage *> list;
};

Outcome meanOfSet(QList<QImage> &&shots, const Options &options, const Control &control)
{
    if (shots.isEmpty() || shots.first().isNull())
        return failed(Error::NoPictures);
    const int count = int(shots.size());
    const QSize size = shots.first().size();
    OwnedPictures pictures(std::move(shots));
    merge::Options how;
    how.align = options.alignment != Alignment::None && count > 1;
    if (control.progress)
        how.beforeStep = [&control](merge::Step step) {
            control.progress(step == merge::Step::Align ? Step::Register : Step::Fuse, 0);
        };
    const merge::Outcome merged = merge::mergePictures(pictures.list, how);
    if (isCancelled(control))
        return failed(Error::Cancelled);
    if (merged.error != merge::Error::None)
        return failed(errorOf(merged.error));
    Outcome outcome;
    outcome.report = reportOf(merged, count, size);
    if (options.crop && outcome.report.area.isEmpty())
        return failed(Error::NothingCovered);
    outcome.picture = options.crop ? merged.picture->copy(outcome.report.area) : *merged.picture;
    return outcome;
}

} // namespace

ReadOptions readOptionsFor(Method method)
{
    ReadOptions options;
    if (method == Method::Mean)
        return options;
    options.depth = ReadOptions::Depth::AsStored;
    options.colours = ReadOptions::Colours::True;
    return options;
}

Outcome mergeSet(Method method, QList<QImage> shots, const Options &options, const Control &control)
{
    try {
        return method == Method::Mean ? meanOfSet(std::move(shots), options, control)
                                      : fuseSet(std::move(shots), options, control);
    } catch (const std::bad_alloc &) {
        return failed(Error::NoMemory);
    }
}

} // namespace exposure
