#pragma once

#include <QImage>
#include <QRect>

#include <functional>
#include <memory>

/// The way from one state of a picture to another and back, at the cost of the pixels that differ.
/// Equal in every byte after any number of applications. One thread at a time.
class PictureStep
{
public:
    virtual ~PictureStep() = default;

    /// Takes the picture to the other state; the step then leads back. Only for the state that the
    /// step was made for. False when memory is lacking: then both stay as they are.
    virtual bool apply(QImage &picture) = 0;
    /// The picture in the other state, null when memory is lacking; the step stays as it is.
    virtual QImage other(const QImage &picture) const = 0;
    virtual QSize otherSize(const QImage &picture) const = 0;
    /// What other() has in an area, with fewer pixels, each the mean of those that it covers: at
    /// the cost of reading, so that it can be shown before the other state is made.
    virtual QImage otherReduced(const QImage &picture, const QRect &area, QSize size) const;
    /// Whether applying it takes no time to speak of, however large the picture.
    virtual bool isInstant() const { return false; }
    /// The pixels that the step holds.
    virtual qint64 bytes() const = 0;
};

namespace picture_step {

/// Leads from the picture after a change back to the one before. Holds the tiles that differ; the
/// picture as it was where all of them do, or size or format.
std::unique_ptr<PictureStep> ofChange(const QImage &before, const QImage &after);

/// The others lead from the picture to what it shall be.

/// To part(before, area), an area within the picture. Holds what is cut off.
std::unique_ptr<PictureStep> toCrop(const QImage &before, const QRect &area);
/// To turned(before, quarters). Holds nothing.
std::unique_ptr<PictureStep> toTurn(const QImage &before, int quarters);

/// A change of any kind, for toChange.
struct Change
{
    QSize size; ///< of the picture then
    /// The picture then.
    std::function<QImage(const QImage &before)> made;
    /// An area of it, as PictureStep::otherReduced; without this it is made whole for that.
    std::function<QImage(const QImage &before, const QRect &area, QSize size)> reduced = {};
};
/// To what the change makes. Holds what ofChange does, once it is made.
std::unique_ptr<PictureStep> toChange(const Change &change);

/// The picture, quarters of a turn clockwise, in its format where Qt can; resolution and colour
/// space go with it.
QImage turned(const QImage &picture, int quarters);

/// A copy of an area within the picture, made on all cores.
QImage part(const QImage &picture, const QRect &area);

/// A picture of that size, not filled, with the format, colours and resolution of model.
QImage likeness(const QImage &model, QSize size);

} // namespace picture_step
