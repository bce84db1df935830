#include "merge_job.h"

#include "fusion.h"
#include "motion.h"
#include "mtb_shifts.h"
#include "reference_shot.h"
#include "registration.h"
#include "resample.h"

#include <QColorSpace>
#include <QElapsedTimer>

#include <algorithm>
#include <new>

namespace exposure {
namespace {

/// One job. The steps run in the order in which they stand here, each unless one before failed.
class Job
{
public:
    Job(QList<QImage> &&pictures, const Options &jobOptions, const Control &jobControl)
        : shots(std::move(pictures))
        , options(jobOptions)
        , control(jobControl)
    {
    }

    Outcome run();

private:
    void check();
    void align();
    int setReference() const;
    void alignByShifts();
    void alignByMotion();
    void resample();
    void findGhosts();
    void fuse();
    void finish();
    void fail(Error error) { outcome.error = error; }
    bool isGoingOn() const { return outcome.error == Error::None; }
    std::function<void(double)> progressOf(Step step) const;
    void timed(void (Job::*step)(), qint64 &milliseconds);

    QList<QImage> shots;
    const Options &options;
    const Control &control;
    std::vector<QImage> masks;
    QImage reference; // the shot that gives profile and resolution; shares its pixels
    Outcome outcome;
};

Outcome Job::run()
{
    check();
    timed(&Job::align, outcome.report.registerMs);
    if (options.ghosts == Ghosts::Remove && shots.size() > 1)
        timed(&Job::findGhosts, outcome.report.ghostsMs);
    timed(&Job::fuse, outcome.report.fuseMs);
    if (isGoingOn())
        finish();
    if (!isGoingOn())
        outcome.picture = QImage();
    return std::move(outcome);
}

void Job::timed(void (Job::*step)(), qint64 &milliseconds)
{
    if (!isGoingOn())
        return;
    QElapsedTimer timer;
    timer.start();
    (this->*step)();
    milliseconds = timer.elapsed();
    if (isGoingOn() && control.cancelled && *control.cancelled)
        fail(Error::Cancelled);
}

std::function<void(double)> Job::progressOf(Step step) const
{
    if (!control.progress)
        return {};
    return [this, step](double done) { control.progress(step, done); };
}

void Job::check()
{
    const auto isNull = [](const QImage &shot) { return shot.isNull(); };
    if (shots.isEmpty() || size_t(shots.size()) > fusion::kMostShots ||
        std::any_of(shots.cbegin(), shots.cend(), isNull))
        return fail(Error::NoPictures);
    const QSize size = shots.first().size();
    const auto differs = [size](const QImage &shot) { return shot.size() != size; };
    if (std::any_of(shots.cbegin(), shots.cend(), differs))
        return fail(Error::DifferentSizes);
    outcome.report.transforms.resize(size_t(shots.size()));
    for (registration::Transform &transform : outcome.report.transforms)
        transform = {registration::Kind::Identity, registration::identityMatrix(), 1.0, 0.0,
                     registration::Reason::None};
    outcome.report.area = QRect(QPoint(), size);
}

void Job::align()
{
    Report &report = outcome.report;
    report.reference = setReference();
    if (shots.size() > 1 && options.alignment == Alignment::Shift)
        alignByShifts();
    if (shots.size() > 1 && options.alignment == Alignment::Perspective)
        alignByMotion();
    if (!isGoingOn())
        return;
    reference = shots[report.reference];
    if (options.crop)
        report.area = registration::commonArea(
            report.transforms, std::vector<QSize>(size_t(shots.size()), reference.size()),
            reference.size());
    if (report.area.isEmpty())
        return fail(Error::NothingCovered);
    resample();
}

/// The one asked for, or the best exposed; by shifts all lie on the first, as the tool does it.
int Job::setReference() const
{
    if (options.reference >= 0)
        return options.reference;
    return options.alignment == Alignment::Shift ? 0 : referenceShot(shots);
}

/// The tool's shifts, onto its first picture; from there onto the reference.
void Job::alignByShifts()
{
    QList<QImage *> pointers;
    for (QImage &shot : shots)
        pointers += &shot;
    std::vector<QPoint> summed = mtb::summedShifts(mtb::pairShifts(pointers));
    summed.insert(summed.begin(), QPoint());
    const QPoint origin = summed[size_t(outcome.report.reference)];
    for (size_t i = 0; i < summed.size(); ++i) {
        const QPoint shift = summed[i] - origin;
        registration::Transform &transform = outcome.report.transforms[i];
        transform.matrix = registration::shiftMatrix(shift.x(), shift.y());
        if (!shift.isNull())
            transform.kind = registration::Kind::Shift;
    }
}

void Job::alignByMotion()
{
    registration::Options how;
    how.reference = outcome.report.reference;
    how.onProgress = progressOf(Step::Register);
    how.isCancelled = control.cancelled;
    registration::Result result = registration::registerShots(shots, how);
    switch (result.outcome) {
    case registration::Outcome::Done:
        outcome.report.reference = result.reference;
        outcome.report.transforms = std::move(result.transforms);
        return;
    case registration::Outcome::Cancelled:
        return fail(Error::Cancelled);
    case registration::Outcome::OutOfMemory:
        return fail(Error::NoMemory);
    case registration::Outcome::NoShots:
        return fail(Error::NoPictures);
    }
}

void Job::resample()
{
    const auto progress = progressOf(Step::Resample);
    const QSize size = reference.size();
    for (qsizetype i = 0; i < shots.size(); ++i) {
        const registration::Transform &transform = outcome.report.transforms[size_t(i)];
        QImage aligned = registration::resample(shots[i], transform, size, control.cancelled);
        if (aligned.isNull())
            return fail(control.cancelled && *control.cancelled ? Error::Cancelled
                                                                : Error::NoMemory);
        shots[i] = options.crop ? aligned.copy(outcome.report.area) : std::move(aligned);
        if (progress)
            progress(double(i + 1) / double(shots.size()));
    }
}

void Job::findGhosts()
{
    motion::Control hand;
    hand.cancelled = control.cancelled;
    hand.progress = progressOf(Step::FindGhosts);
    const std::vector<QImage> pictures(shots.cbegin(), shots.cend());
    motion::Result result = motion::find(pictures, options.ghostReference, hand);
    switch (result.status) {
    case motion::Status::Done:
        break;
    case motion::Status::Cancelled:
        return fail(Error::Cancelled);
    case motion::Status::OutOfMemory:
        return fail(Error::NoMemory);
    case motion::Status::BadShots:
        return fail(Error::NoPictures);
    }
    masks = std::move(result.masks);
    outcome.report.hasGhosts = !result.found.isNull();
    if (outcome.report.hasGhosts)
        outcome.ghosts = result.found.scaled(shots.first().size());
}

void Job::fuse()
{
    std::vector<fusion::Shot> parts;
    parts.reserve(size_t(shots.size()));
    for (qsizetype i = 0; i < shots.size(); ++i)
        parts.push_back({shots[i], masks.empty() ? QImage() : masks[size_t(i)]});
    shots.clear();
    fusion::Control hand;
    hand.cancelled = control.cancelled;
    hand.progress = progressOf(Step::Fuse);
    fusion::Result result = fusion::fuse(parts, options.weights, hand);
    switch (result.status) {
    case fusion::Status::Done:
        outcome.picture = std::move(result.picture);
        return;
    case fusion::Status::Cancelled:
        return fail(Error::Cancelled);
    case fusion::Status::OutOfMemory:
        return fail(Error::NoMemory);
    case fusion::Status::BadShots:
        return fail(Error::NoPictures);
    }
}

void Job::finish()
{
    QImage &picture = outcome.picture;
    adjust(picture, options.adjustment);
    picture.setColorSpace(reference.colorSpace());
    picture.setDotsPerMeterX(reference.dotsPerMeterX());
    picture.setDotsPerMeterY(reference.dotsPerMeterY());
}

} // namespace

Outcome merge(QList<QImage> shots, const Options &options, const Control &control)
{
    try {
        return Job(std::move(shots), options, control).run();
    } catch (const std::bad_alloc &) {
        Outcome failed;
        failed.error = Error::NoMemory;
        return failed;
    }
}

} // namespace exposure
