#pragma once

#include <QImage>
#include <QRect>

#include <memory>

/// The way from one state of a picture to another and back, at the cost of the pixels that differ.
/// Equal in every byte after any number of applications. One thread at a time.
class PictureStep
{
public:
    virtual ~PictureStep() = default;

    /// Takes the picture to the other state; the step then leads back. Only for the state that the
    /// step was made for.
    virtual void apply(QImage &picture) = 0;
    /// The picture in the other state; the step stays as it is.
    virtual QImage other(const QImage &picture) const = 0;
    /// Whether applying it takes no time to speak of, however large the picture.
    virtual bool isInstant() const { return false; }
    /// The pixels that the step holds.
    virtual qint64 bytes() const = 0;
};

namespace picture_step {

/// Each leads from the picture after a change back to the one before.

/// Holds the tiles that differ; the picture as it was where all of them do, or size or format.
std::unique_ptr<PictureStep> ofChange(const QImage &before, const QImage &after);
/// after: part(before, area), an area within the picture. Holds what was cut off.
std::unique_ptr<PictureStep> ofCrop(const QImage &before, const QRect &area);
/// after: turned(before, quarters). Holds nothing.
std::unique_ptr<PictureStep> ofTurn(const QImage &before, int quarters);

/// The picture, quarters of a turn clockwise, in its format where Qt can; resolution and colour
/// space go with it.
QImage turned(const QImage &picture, int quarters);

/// A copy of an area within the picture, made on all cores.
QImage part(const QImage &picture, const QRect &area);

/// A picture of that size, not filled, with the format, colours and resolution of model.
QImage likeness(const QImage &model, QSize size);

} // namespace picture_step
