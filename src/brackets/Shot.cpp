#include "Shot.h"

#include "ResultMark.h"
#include "bracket_note.h"
#include "exif_metadata.h"
#include "file_names.h"
#include "metadata_reader.h"
#include "raw_shot.h"

#include <VeskRawType.h>

#include <QFile>
#include <QImageReader>

#include <array>
#include <cmath>

namespace {

/// Header fields of JPEG, PNG and TIFF files.
Shot readFromExif(const QString &path)
{
    using Directory = ExifTags::Directory;
    Shot shot;
    const ExifTags tags = exif::read(path);
    const auto fraction = [&tags](ExifTags::Tag tag) {
        return tags.fraction(Directory::Exposure, tag).value_or(0.0);
    };
    shot.model = tags.text(Directory::Picture, ExifTags::Model);
    shot.takenAt = exif::momentOf(tags.text(Directory::Exposure, ExifTags::DateTimeOriginal),
                                  tags.text(Directory::Exposure, ExifTags::SubSecondsOriginal));
    shot.orientation =
        int(qBound(1u, tags.number(Directory::Picture, ExifTags::Orientation).value_or(1), 8u));
    shot.exposureBias = tags.fraction(Directory::Exposure, ExifTags::ExposureBias);
    shot.bracketStops = brackets::bracketStopsIn(tags);
    shot.exposureSeconds = fraction(ExifTags::ExposureTime);
    shot.fNumber = fraction(ExifTags::FNumber);
    shot.serial = tags.text(Directory::Exposure, ExifTags::BodySerialNumber);
    shot.lens = tags.text(Directory::Exposure, ExifTags::LensModel);
    shot.focalLength = fraction(ExifTags::FocalLength);
    shot.mode = brackets::modeOf(tags.number(Directory::Exposure, ExifTags::ExposureMode));
    shot.iso = int(tags.number(Directory::Exposure, ExifTags::Sensitivity).value_or(0));
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    shot.size = reader.size();
    if (shot.orientation >= 5)
        shot.size.transpose();
    return shot;
}

/// Results keep the metadata of a shot, and so look like one.
QByteArray xmpIn(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? metadata::xmpIn(file) : QByteArray();
}

} // namespace

std::optional<double> Shot::exposureStops() const
{
    if (exposureSeconds <= 0)
        return std::nullopt;
    const double sensitivity = iso > 0 ? iso : 100;
    const double aperture = fNumber > 0 ? fNumber : 8;
    return std::log2(exposureSeconds * sensitivity / (aperture * aperture));
}

Shot::Exposure brackets::modeOf(std::optional<quint32> exifNumber)
{
    constexpr std::array kModes = {Shot::Exposure::Automatic, Shot::Exposure::ByHand,
                                   Shot::Exposure::CameraBracket};
    return exifNumber && *exifNumber < kModes.size() ? kModes[*exifNumber]
                                                     : Shot::Exposure::Unknown;
}

ShotReading brackets::readShot(const QString &name)
{
    const file_names::ReadablePath file(name);
    const QString &path = file.path();
    ShotReading reading;
    reading.shot = VeskRawType::isRaw(path) ? brackets::readRawShot(path) : readFromExif(path);
    const Shot &shot = reading.shot;
    reading.shot.path = name;
    if (const std::optional<ResultMark> mark = result_mark::in(xmpIn(path)))
        reading.problem = QStringLiteral("it is a result of %1").arg(mark->program);
    else if (!shot.takenAt.isValid())
        reading.problem = QStringLiteral("it does not say when it was taken");
    else if (!shot.exposureBias && !shot.exposureStops())
        reading.problem = QStringLiteral("it does not say how it was exposed");
    else if (shot.size.isEmpty())
        reading.problem = QStringLiteral("its size cannot be read");
    return reading;
}
