#include "merge_job.h"

#include "fusion.h"
#include "large_memory.h"
#include "motion.h"
#include "parallel_rows.h"
#include "radiance.h"
#include "screen_levels.h"
#include "taken_parts.h"

#include <QColorSpace>
#include <QElapsedTimer>

#include <algorithm>
#include <new>

namespace exposure {
namespace {

Error errorOf(registration::Outcome outcome)
{
    switch (outcome) {
    case registration::Outcome::Done:
        return Error::None;
    case registration::Outcome::Cancelled:
        return Error::Cancelled;
    case registration::Outcome::OutOfMemory:
        return Error::NoMemory;
    case registration::Outcome::NoShots:
        break;
    }
    return Error::NoPictures;
}

/// Each place of a mask of half the size as 2 x 2 pixels. QImage::scaled waits for ever where
/// memory for a thread is lacking.
QImage doubled(const QImage &half, QSize size)
{
    QImage picture = memory::largeImage(size, QImage::Format_Grayscale8);
    if (picture.isNull())
        throw std::bad_alloc();
    uchar *bits = picture.bits();
    const qsizetype rowBytes = picture.bytesPerLine();
    parallel::rows(size, [&](int begin, int end) {
        for (int y = begin; y < end; ++y) {
            const uchar *from = half.constScanLine(y / 2);
            uchar *to = bits + y * rowBytes;
            for (int x = 0; x < size.width(); ++x)
                to[x] = from[x / 2];
        }
    });
    return picture;
}

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
    void checkTakes();
    void align();
    void resample();
    void chooseShots();
    void findGhosts();
    void addTakes();
    void fuse();
    void mergeLight(QImage &light);
    void mergeProduct();
    void takeStatus(fusion::Status status);
    fusion::Shot shotAt(qsizetype index) const;
    void finish();
    void fail(Error error) { outcome.error = error; }
    bool isGoingOn() const { return outcome.error == Error::None; }
    std::function<void(double)> progressOf(Step step) const;
    void timed(void (Job::*step)(), qint64 &milliseconds);

    QList<QImage> shots;
    const Options &options;
    const Control &control;
    std::vector<QImage> masks;
    QImage moved;     // as the masks; doubled at the end, when there is room
    QImage reference; // the shot that gives profile and resolution; shares its pixels
    Outcome outcome;
};

Outcome Job::run()
{
    check();
    timed(&Job::align, outcome.report.registerMs);
    if (shots.size() > 1)
        timed(&Job::chooseShots, outcome.report.ghostsMs);
    timed(&Job::mergeProduct, outcome.report.fuseMs);
    if (isGoingOn())
        finish();
    if (!isGoingOn())
        outcome.picture = outcome.light = QImage();
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
    if (!options.exposures.empty() && qsizetype(options.exposures.size()) != shots.size())
        return fail(Error::NoPictures);
    const QSize size = shots.first().size();
    const auto differs = [size](const QImage &shot) { return shot.size() != size; };
    if (std::any_of(shots.cbegin(), shots.cend(), differs))
        return fail(Error::DifferentSizes);
    checkTakes();
    outcome.report.transforms.resize(size_t(shots.size()));
    for (registration::Transform &transform : outcome.report.transforms)
        transform = {registration::Kind::Identity, registration::identityMatrix(), 1.0, 0.0,
                     registration::Reason::None};
    outcome.report.area = QRect(QPoint(), size);
}

void Job::checkTakes()
{
    const auto isNoShot = [this](const auto &take) {
        return take.shot < 0 || take.shot >= shots.size();
    };
    const auto hasOtherSize = [this](const motion::Take &take) {
        return take.mask.size() != shots.first().size();
    };
    const std::vector<motion::Take> &takes = options.takes;
    if (std::any_of(takes.begin(), takes.end(), isNoShot) ||
        std::any_of(options.things.begin(), options.things.end(), isNoShot))
        return fail(Error::NoSuchShot);
    if (std::any_of(takes.begin(), takes.end(), hasOtherSize))
        return fail(Error::OtherMaskSize);
}

void Job::align()
{
    PlacementOptions how;
    how.alignment = options.alignment;
    how.reference = options.reference;
    how.progress = progressOf(Step::Register);
    how.cancelled = control.cancelled;
    const registration::Result placement = placed(shots, how);
    if (placement.outcome != registration::Outcome::Done)
        return fail(errorOf(placement.outcome));
    Report &report = outcome.report;
    report.reference = placement.reference;
    report.transforms = placement.transforms;
    reference = shots[report.reference];
    if (options.crop)
        report.area = areaOfAll(placement, reference.size());
    if (report.area.isEmpty())
        return fail(Error::NothingCovered);
    resample();
}

void Job::resample()
{
    const auto progress = progressOf(Step::Resample);
    const Report &report = outcome.report;
    for (qsizetype i = 0; i < shots.size(); ++i) {
        shots[i] = laidOver(shots[i], report.transforms[size_t(i)], report.area, control.cancelled);
        if (shots[i].isNull())
            return fail(control.cancelled && *control.cancelled ? Error::Cancelled
                                                                : Error::NoMemory);
        if (progress)
            progress(double(i + 1) / double(shots.size()));
    }
}

void Job::chooseShots()
{
    if (options.ghosts == Ghosts::Remove)
        findGhosts();
    if (isGoingOn() && !options.takes.empty())
        addTakes();
}

/// The takes of what the picture shows.
void Job::addTakes()
{
    const QRect area = outcome.report.area;
    std::vector<motion::Take> takes = options.takes;
    for (motion::Take &take : takes) {
        take.mask = std::move(take.mask).convertToFormat(QImage::Format_Grayscale8);
        if (area.size() != take.mask.size())
            take.mask = take.mask.copy(area);
        if (take.mask.isNull())
            return fail(Error::NoMemory);
    }
    const std::vector<QImage> pictures(shots.cbegin(), shots.cend());
    if (!motion::addTakes(takes, pictures, masks, control.cancelled))
        fail(Error::Cancelled);
}

void Job::findGhosts()
{
    motion::Control hand;
    hand.cancelled = control.cancelled;
    hand.progress = progressOf(Step::FindGhosts);
    std::vector<QImage> pictures;
    for (const QImage &shot : std::as_const(shots)) {
        pictures.push_back(inScreenLevels(shot));
        if (pictures.back().isNull())
            return fail(Error::NoMemory);
    }
    std::vector<motion::ThingTake> things = options.things;
    for (motion::ThingTake &thing : things)
        thing.place -= outcome.report.area.topLeft();
    motion::Result result = motion::find(pictures, options.ghostReference, hand, things);
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
    moved = std::move(result.found);
    outcome.report.hasGhosts = !moved.isNull();
}

fusion::Shot Job::shotAt(qsizetype index) const
{
    return {shots[index], masks.empty() ? QImage() : masks[size_t(index)]};
}

void Job::takeStatus(fusion::Status status)
{
    switch (status) {
    case fusion::Status::Done:
        return;
    case fusion::Status::Cancelled:
        return fail(Error::Cancelled);
    case fusion::Status::OutOfMemory:
        return fail(Error::NoMemory);
    case fusion::Status::BadShots:
        return fail(Error::NoPictures);
    }
}

void Job::fuse()
{
    std::vector<fusion::Shot> parts;
    parts.reserve(size_t(shots.size()));
    for (qsizetype i = 0; i < shots.size(); ++i)
        parts.push_back(shotAt(i));
    shots.clear();
    masks.clear();
    memory::giveBackFreed();
    fusion::Control hand;
    hand.cancelled = control.cancelled;
    hand.progress = progressOf(Step::Fuse);
    fusion::Result result = fusion::fuse(std::move(parts), options.weights, hand);
    outcome.picture = std::move(result.picture);
    takeStatus(result.status);
    if (!isGoingOn())
        return;
    adjust(outcome.picture, options.adjustment);
    outcome.picture.setColorSpace(reference.colorSpace());
}

void Job::mergeProduct()
{
    if (options.product == Product::Light)
        return mergeLight(outcome.picture);
    if (options.product == Product::Both)
        mergeLight(outcome.light);
    if (isGoingOn())
        fuse();
}

void Job::mergeLight(QImage &light)
{
    std::vector<radiance::Shot> parts;
    for (qsizetype i = 0; i < shots.size(); ++i)
        parts.push_back(
            {shotAt(i), options.exposures.empty() ? 0.0 : options.exposures[size_t(i)]});
    if (options.product == Product::Light)
        shots.clear();
    fusion::Control hand;
    hand.cancelled = control.cancelled;
    hand.progress = progressOf(Step::Fuse);
    radiance::Options how;
    how.curve = options.curve;
    how.reference = outcome.report.reference;
    radiance::Result result = radiance::merge(std::move(parts), how, hand);
    light = std::move(result.picture);
    outcome.bounds = std::move(result.bounds);
    outcome.report.exposures = std::move(result.exposures);
    outcome.report.areExposuresKnown = result.areExposuresKnown;
    outcome.report.isCurveRecovered = result.isCurveRecovered;
    takeStatus(result.status);
}

void Job::finish()
{
    if (!moved.isNull())
        outcome.ghosts = doubled(moved, outcome.picture.size());
    QImage &picture = outcome.picture;
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
