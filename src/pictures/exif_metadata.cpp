#include "exif_metadata.h"

#include "exif_block.h"
#include "file_names.h"
#include "maker_note.h"

#include <VeskRawType.h>

#include <QFile>

#include <cmath>

namespace {

using Directory = ExifTags::Directory;

bool isStandard(const QColorSpace &colours)
{
    return colours.primaries() == QColorSpace::Primaries::SRgb &&
           colours.transferFunction() == QColorSpace::TransferFunction::SRgb;
}

void setInteroperability(ExifTags &tags, const QColorSpace &colours)
{
    if (tags.entries(Directory::Interoperability).empty())
        return;
    if (isStandard(colours))
        tags.setText(Directory::Interoperability, ExifTags::InteroperabilityIndex, "R98");
    else if (colours.primaries() == QColorSpace::Primaries::AdobeRgb)
        tags.setText(Directory::Interoperability, ExifTags::InteroperabilityIndex, "R03");
    else
        tags.clear(Directory::Interoperability);
}

/// Nothing changes when the pixels themselves do not tell their colour space.
void setColours(ExifTags &tags, const QColorSpace &colours)
{
    if (!colours.isValid())
        return;
    tags.setShort(Directory::Exposure, ExifTags::ColourSpace, exif::numberOf(colours));
    setInteroperability(tags, colours);
}

void leaveOutMakerNote(exif::Adapted &adapted, const QString &reason)
{
    adapted.tags.remove(Directory::Exposure, ExifTags::MakerNote);
    adapted.leftOut += reason;
}

void keepMakerNote(exif::Adapted &adapted)
{
    const ExifTags::Entry *note = adapted.tags.find(Directory::Exposure, ExifTags::MakerNote);
    if (!note)
        return;
    // A block with the note far behind would be mostly empty, and too large for a JPEG file.
    const bool fitsAtItsPlace = note->place < exif::kLargestJpegBlock;
    if (!maker_note::isWhole(note->value, note->place, adapted.tags.hasBigEndianNumbers()))
        leaveOutMakerNote(adapted, QStringLiteral("the camera's maker note is left out, as parts "
                                                  "of it lie elsewhere in the file"));
    else if (!fitsAtItsPlace && maker_note::isSelfContained(note->value))
        adapted.tags.forgetPlaceOfMakerNote();
    else if (!fitsAtItsPlace)
        leaveOutMakerNote(adapted, QStringLiteral("the camera's maker note is left out, as it "
                                                  "cannot be moved without harm"));
}

bool isTooLarge(const exif::Adapted &adapted, qsizetype largestBlock)
{
    return largestBlock != exif::kAnySize && adapted.tags.block().size() > largestBlock;
}

void fitInto(exif::Adapted &adapted, qsizetype largestBlock)
{
    if (!isTooLarge(adapted, largestBlock))
        return;
    if (adapted.tags.find(Directory::Exposure, ExifTags::MakerNote))
        leaveOutMakerNote(adapted, QStringLiteral("the camera's maker note is left out, as it is "
                                                  "too large for this kind of file"));
    if (!isTooLarge(adapted, largestBlock))
        return;
    adapted.tags = {};
    adapted.leftOut = {QStringLiteral("the EXIF data are left out, as they are too large for "
                                      "this kind of file")};
}

} // namespace

ExifTags exif::read(const QString &name)
{
    const file_names::ReadablePath path(name);
    QFile file(path.path());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray block = blockIn(file);
    if (!block.isEmpty())
        return ExifTags::parse(block);
    // TIFF files, and the raw files that are TIFF files inside.
    ExifTags tags = ExifTags::read(file);
    if (!tags.isEmpty() && VeskRawType::isRaw(path.path()))
        setColours(tags, QColorSpace::SRgb);
    return tags;
}

quint16 exif::numberOf(const QColorSpace &colours)
{
    constexpr quint16 kStandardColours = 1;
    constexpr quint16 kOtherColours = 0xFFFF;
    return isStandard(colours) ? kStandardColours : kOtherColours;
}

exif::Adapted exif::forUprightPicture(const ExifTags &camera, const QImage &picture,
                                      qsizetype largestBlock)
{
    Adapted adapted{camera, {}};
    ExifTags &tags = adapted.tags;
    if (tags.isEmpty())
        return adapted;
    // Places in the old picture's stored pixels mean others in the new one.
    tags.remove(Directory::Exposure, ExifTags::SubjectArea);
    tags.remove(Directory::Exposure, ExifTags::SubjectLocation);
    tags.setShort(Directory::Picture, ExifTags::Orientation, 1);
    tags.setLong(Directory::Exposure, ExifTags::PixelWidth, static_cast<quint32>(picture.width()));
    tags.setLong(Directory::Exposure, ExifTags::PixelHeight,
                 static_cast<quint32>(picture.height()));
    setColours(tags, picture.colorSpace());
    keepMakerNote(adapted);
    fitInto(adapted, largestBlock);
    return adapted;
}

QDateTime exif::momentOf(const QString &time, const QString &subSeconds)
{
    QDateTime moment = QDateTime::fromString(time, QStringLiteral("yyyy:MM:dd HH:mm:ss"));
    moment.setTimeSpec(Qt::UTC);
    const double fraction = (QStringLiteral("0.") + subSeconds.trimmed()).toDouble();
    return moment.isValid() ? moment.addMSecs(std::lround(fraction * 1000)) : moment;
}
