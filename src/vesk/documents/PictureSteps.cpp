#include "PictureSteps.h"

#include <algorithm>

PictureSteps::PictureSteps(std::vector<std::unique_ptr<PictureStep>> made)
    : steps(std::move(made))
{
    count();
}

void PictureSteps::count()
{
    qint64 sum = 0;
    for (const auto &step : steps)
        sum += step ? step->bytes() : 0;
    held = sum;
}

void PictureSteps::apply(QList<QImage> &pictures)
{
    const std::lock_guard<std::mutex> alone(mutex);
    for (int i = 0; i < pictures.size() && i < int(steps.size()); ++i) {
        if (steps[size_t(i)])
            steps[size_t(i)]->apply(pictures[i]);
    }
    ++applied;
    count();
}

QList<QImage> PictureSteps::others(const QList<QImage> &pictures, int timesApplied) const
{
    const std::lock_guard<std::mutex> alone(mutex);
    if (timesApplied != applied)
        return {};
    QList<QImage> all = pictures;
    for (int i = 0; i < all.size() && i < int(steps.size()); ++i) {
        if (steps[size_t(i)])
            all[i] = steps[size_t(i)]->other(pictures[i]);
    }
    return all;
}

bool PictureSteps::areInstant() const
{
    return std::all_of(steps.begin(), steps.end(),
                       [](const auto &step) { return !step || step->isInstant(); });
}
