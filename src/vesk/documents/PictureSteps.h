#pragma once

#include "PictureStep.h"

#include <QList>

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

/// The steps of one edit, one for each picture of its document; null for a picture that stayed as
/// it was. Any thread: one at a time is let in.
class PictureSteps
{
public:
    explicit PictureSteps(std::vector<std::unique_ptr<PictureStep>> steps);

    /// Takes the pictures to the other state; the steps then lead back.
    void apply(QList<QImage> &pictures);
    /// How often that has been done.
    int timesApplied() const { return applied; }
    /// The pictures in the other state, as long as the steps have been applied that often;
    /// otherwise none. The steps stay as they are.
    QList<QImage> others(const QList<QImage> &pictures, int timesApplied) const;

    /// Whether applying takes no time to speak of.
    bool areInstant() const;
    qint64 bytes() const { return held; }

private:
    void count();

    mutable std::mutex mutex;
    const std::vector<std::unique_ptr<PictureStep>> steps;
    std::atomic<int> applied{0};
    std::atomic<qint64> held{0}; // asked for while others are at work
};
