#include "PictureSteps.h"

#include <area_mean.h>

#include <algorithm>
#include <mutex>

PictureSteps::PictureSteps(std::vector<std::unique_ptr<PictureStep>> made)
    : steps(std::move(made))
{
    count();
}

PictureSteps::PictureSteps(std::unique_ptr<PictureStep> step)
    : PictureSteps([&step] {
        std::vector<std::unique_ptr<PictureStep>> alone;
        alone.push_back(std::move(step));
        return alone;
    }())
{
}

/// Null where the picture stays as it is.
const PictureStep *PictureSteps::stepAt(int index) const
{
    return index < int(steps.size()) ? steps[size_t(index)].get() : nullptr;
}

void PictureSteps::count()
{
    qint64 sum = 0;
    for (const auto &step : steps)
        sum += step ? step->bytes() : 0;
    held = sum;
}

bool PictureSteps::apply(QList<QImage> &pictures)
{
    const std::lock_guard<std::shared_mutex> alone(mutex);
    const int last = std::min(int(pictures.size()), int(steps.size())) - 1;
    for (int i = 0; i <= last; ++i) {
        if (steps[size_t(i)] && !steps[size_t(i)]->apply(pictures[i])) {
            for (int done = i - 1; done >= 0; --done) {
                if (steps[size_t(done)])
                    steps[size_t(done)]->apply(pictures[done]);
            }
            return false;
        }
    }
    ++applied;
    count();
    return true;
}

QList<QImage> PictureSteps::others(const QList<QImage> &pictures, int timesApplied) const
{
    const std::shared_lock<std::shared_mutex> beside(mutex);
    if (timesApplied != applied)
        return {};
    QList<QImage> all = pictures;
    for (int i = 0; i < all.size(); ++i) {
        if (const PictureStep *step = stepAt(i))
            all[i] = step->other(pictures[i]);
    }
    return all;
}

QList<QSize> PictureSteps::otherSizes(const QList<QImage> &pictures) const
{
    QList<QSize> sizes;
    for (int i = 0; i < pictures.size(); ++i) {
        const PictureStep *step = stepAt(i);
        sizes.append(step ? step->otherSize(pictures[i]) : pictures[i].size());
    }
    return sizes;
}

QImage PictureSteps::otherReduced(const QList<QImage> &pictures, int index, const QRect &area,
                                  QSize size) const
{
    const std::shared_lock<std::shared_mutex> beside(mutex);
    const PictureStep *step = stepAt(index);
    return step ? step->otherReduced(pictures[index], area, size)
                : picture::areaMean(pictures[index], area, size);
}

bool PictureSteps::areInstant() const
{
    return std::all_of(steps.begin(), steps.end(),
                       [](const auto &step) { return !step || step->isInstant(); });
}
