#pragma once

#include <QImage>
#include <QList>
#include <QPoint>

#include <vector>

/// Pictures moved by whole pixels: what is at (u, v) comes to (u + dx, v + dy), any int will do;
/// what leaves the picture is lost, what is uncovered becomes 0 (transparent black).
/// Any thread, reentrant. std::bad_alloc where memory is lacking, unless a function says otherwise.
namespace shift {

/// New QImage::Format_ARGB32 picture with the shifted words of one of 32 bits per pixel. It owns
/// its pixels. Null without words, or when memory is lacking: nothing is thrown.
QImage copy(const QImage &words, int dx, int dy);

/// Writes an 8-bit image, shifted, into an existing one, perhaps of another size.
void copyBytes(const QImage &source, int dx, int dy, QImage &target);

/// Whose memory the shifted pictures live in.
enum class Memory {
    New,   ///< their own: the unshifted pixels, which may be only borrowed, are not written
    Reused ///< the unshifted pictures', where nobody else shares it: for those who own it
};

/// Replaces picture i + 1 by a picture shifted by shifts[i] and deletes the unshifted one. The new
/// pictures belong to the list's owner. They are made one after the other, so that a second set of
/// pictures is never held: when memory runs out, those not yet shifted stay as they are.
void pictures(QList<QImage *> &pictures, const std::vector<QPoint> &shifts, Memory memory);

} // namespace shift
