#pragma once

#include <DocumentHistory.h>
#include <Look.h>

#include <QRect>

#include <optional>

/// The edits of a document, from the pictures of its layers. What is lost is kept for the way back.
/// Any thread.
namespace edits {

// These are still to be made, which takes time: their pictures are those that steps lead to.

/// area: within all pictures.
DocumentEdit crop(const QList<QImage> &pictures, const QRect &area);
/// Quarters of a turn clockwise, 1 to 3.
DocumentEdit turn(const QList<QImage> &pictures, int quarters);
/// Turns by degrees clockwise, -45 to 45, about the middle, and cuts to the largest part of the
/// same shape that is covered.
DocumentEdit straighten(const QList<QImage> &pictures, double degrees);

/// Made at once, so not on the GUI's thread. pictures: before any look; the steps lead back to
/// them. Looks that follow one another are one edit.
DocumentEdit adjust(const QList<QImage> &pictures, const exposure::Look &look);

/// The kind of looks, for DocumentHistory.
extern const QString kLook;
/// The look that the document has at present and that the next would replace; neutral for none.
exposure::Look lookOf(const DocumentHistory &history);

/// The picture with that look at its depth, in its format where that can hold the result.
QImage adjusted(const QImage &picture, const exposure::Look &look);

} // namespace edits
