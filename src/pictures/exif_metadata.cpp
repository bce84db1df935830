#include "exif_metadata.h"

#include "file_names.h"
#include "maker_note.h"

#include <VeskRawType.h>

#include <QColorSpace>
#include <QFile>
#include <QtEndian>

#include <cmath>
#include <memory>

#include <libexif/exif-loader.h>

namespace {

using Directory = ExifTags::Directory;

constexpr quint16 kStandardColours = 1;
constexpr quint16 kOtherColours = 0xFFFF;

struct UnrefLoader
{
    void operator()(ExifLoader *loader) const { exif_loader_unref(loader); }
};

QByteArray blockInJpeg(const QFile &file)
{
    const std::unique_ptr<ExifLoader, UnrefLoader> loader(exif_loader_new());
    if (!loader)
        return {};
    exif_loader_write_file(loader.get(), QFile::encodeName(file.fileName()).constData());
    const unsigned char *bytes = nullptr;
    unsigned length = 0;
    exif_loader_get_buf(loader.get(), &bytes, &length);
    return {reinterpret_cast<const char *>(bytes), static_cast<qsizetype>(length)};
}

/// Chunks are: length, name, that many bytes, checksum.
QByteArray blockInPng(QFile &file)
{
    constexpr qint64 kFileSignatureBytes = 8;
    constexpr qint64 kChecksumBytes = 4;
    file.seek(kFileSignatureBytes);
    while (true) {
        const QByteArray head = file.read(8);
        const qint64 length = head.size() < 8 ? 0 : qFromBigEndian<quint32>(head.constData());
        if (head.size() < 8 || length > file.size() - file.pos())
            return {};
        if (head.endsWith("eXIf"))
            return file.read(length);
        file.seek(file.pos() + length + kChecksumBytes);
    }
}

/// The block of a file whose format has a place for it. TIFF files are blocks themselves.
QByteArray blockIn(QFile &file)
{
    const QByteArray start = file.peek(8);
    return start.startsWith("\xFF\xD8")  ? blockInJpeg(file)
           : start.startsWith("\x89PNG") ? blockInPng(file)
                                         : QByteArray();
}

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
    tags.setShort(Directory::Exposure, ExifTags::ColourSpace,
                  isStandard(colours) ? kStandardColours : kOtherColours);
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
