#pragma once

#include <QImage>
#include <QString>

/// Why a file gave no picture. Programs choose their exit code by it.
enum class DecodeError {
    None,
    Missing,
    Directory,
    NotRegularFile, ///< a pipe, a socket or a device
    NoPermission,
    Unreadable, ///< the system could not open or read it
    Empty,
    NotAPicture,
    Damaged,  ///< truncated or otherwise broken
    TooLarge, ///< more pixels than the limit
    NoMemory,
};

/// A decoded picture, or the error with a plain reason in words (without the file's name).
struct DecodedPicture
{
    QImage image; ///< null on error
    DecodeError error = DecodeError::None;
    QString reason; ///< empty on success
};

/// Pixels that a picture may have unless the caller says otherwise.
constexpr qint64 kDefaultPixelLimit = 512LL * 1000 * 1000;

/// Decodes a picture file upright (as the orientation in the file says) in the pixel format that
/// the toolkit chooses for it, with its colour profile. The kind of file is recognised by content,
/// not by suffix. A picture that is not complete is an error. Indexes of a palette picture always
/// lie inside its colour table. More pixels than pixelLimit (width times height) are refused from
/// the file's header, before memory is taken for them.
/// Never blocks on a pipe or device. Any thread, reentrant.
DecodedPicture decodePicture(const QString &path, qint64 pixelLimit = kDefaultPixelLimit);

/// The failure of decodePicture with its reason in words, for callers that refuse a picture
/// themselves. size is used by TooLarge and NoMemory.
DecodedPicture decodeFailure(DecodeError error, QSize size = {});
