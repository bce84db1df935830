#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

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
    Unsupported, ///< a picture, but of a kind that this build does not read
    Damaged,     ///< truncated or otherwise broken
    TooLarge,    ///< more pixels than the limit
    NoMemory,
    Cancelled,
};

/// A picture from a file, or the error with a plain reason in words (without the file's name).
struct DecodedPicture
{
    QImage image; ///< null on error
    DecodeError error = DecodeError::None;
    QString reason; ///< empty on success
    /// What of the file does not count although the picture is there, in English, for reports.
    QStringList warnings = {};
    /// Of light: candelas per square metre of light 1, as the file tells; 0 where it does not.
    double whiteLuminance = 0.0;
};

namespace picture {

/// The failure with its usual reason in words. size is used by TooLarge and NoMemory.
DecodedPicture failure(DecodeError error, QSize size = {});

/// Unsupported: kind is the name of the kind, such as "HEIC".
DecodedPicture unsupported(const QString &kind);

} // namespace picture
