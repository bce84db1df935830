#pragma once

#include <QDateTime>
#include <QSize>
#include <QString>

#include <optional>

/// What a camera noted about one picture, as far as brackets are found by it.
struct Shot
{
    /// Who chose the exposure: EXIF's ExposureMode.
    enum class Exposure { Unknown, Automatic, ByHand, CameraBracket };

    QString path;
    QString model;
    QString serial; ///< of the camera's body; may be empty
    QString lens;   ///< may be empty
    QDateTime
        takenAt; ///< the camera's clock, as UTC so that no hour is skipped; to the millisecond
    QSize size;  ///< pixels as they are shown, upright
    int orientation = 1; ///< EXIF's number, 1 to 8
    Exposure mode = Exposure::Unknown;
    std::optional<double> exposureBias; ///< stops
    std::optional<double> bracketStops; ///< of them, what the camera's bracketing was; maker note
    double exposureSeconds = 0;         ///< 0 when not known
    double fNumber = 0;                 ///< 0 when not known
    double focalLength = 0;             ///< mm; 0 when not known
    int iso = 0;                        ///< 0 when not known

    /// Light that the sensor took, in stops on a scale that all pictures share; nothing when the
    /// time is not known. Aperture and sensitivity count as the same for all where they are not
    /// known, as of lenses without contacts.
    std::optional<double> exposureStops() const;
};

/// A shot, or why a file cannot be part of a bracket, in words.
struct ShotReading
{
    Shot shot;
    QString problem; ///< empty on success
};

namespace brackets {

/// By EXIF's number of the exposure mode.
Shot::Exposure modeOf(std::optional<quint32> exifNumber);

/// Reads a picture's header: EXIF data of JPEG, PNG and TIFF files, and camera raw files through
/// LibRaw. The pixels are not decoded. Any thread, reentrant.
ShotReading readShot(const QString &path);

} // namespace brackets
