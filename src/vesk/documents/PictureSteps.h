#pragma once

#include "PictureStep.h"

#include <QList>

#include <atomic>
#include <memory>
#include <shared_mutex>
#include <vector>

/// The steps of one edit, one for each picture of its document; null for a picture that stayed as
/// it was. Any thread: who applies them is alone.
class PictureSteps
{
public:
    explicit PictureSteps(std::vector<std::unique_ptr<PictureStep>> steps);
    /// Of a document with one picture.
    explicit PictureSteps(std::unique_ptr<PictureStep> step);

    /// Takes the pictures to the other state; the steps then lead back. False when memory is
    /// lacking: then all stay as they are.
    bool apply(QList<QImage> &pictures);
    /// How often that has been done.
    int timesApplied() const { return applied; }
    /// The pictures in the other state, as long as the steps have been applied that often;
    /// otherwise none. The steps stay as they are.
    QList<QImage> others(const QList<QImage> &pictures, int timesApplied) const;

    /// The sizes of the pictures in the other state. Not while another thread applies the steps.
    QList<QSize> otherSizes(const QList<QImage> &pictures) const;
    /// An area of the picture at index in the other state, see PictureStep::otherReduced.
    QImage otherReduced(const QList<QImage> &pictures, int index, const QRect &area,
                        QSize size) const;

    /// Whether applying takes no time to speak of.
    bool areInstant() const;
    qint64 bytes() const { return held; }

private:
    void count();
    const PictureStep *stepAt(int index) const;

    mutable std::shared_mutex mutex;
    const std::vector<std::unique_ptr<PictureStep>> steps;
    std::atomic<int> applied{0};
    std::atomic<qint64> held{0}; // asked for while others are at work
};
