#include "Shot.h"

#include "exif_metadata.h"
#include "raw_shot.h"

#include <VeskRawType.h>

#include <QImageReader>

#include <cmath>

namespace {

/// Entries of one directory, read with the sizes and formats that they should have.
class Directory
{
public:
    Directory(const ExifData &data, ExifIfd directory)
        : content(data.ifd[directory])
        , order(exif_data_get_byte_order(const_cast<ExifData *>(&data)))
    {
    }

    QString text(ExifTag tag) const
    {
        const ExifEntry *entry = find(tag, EXIF_FORMAT_ASCII, 1);
        if (!entry)
            return {};
        const QByteArray bytes(reinterpret_cast<const char *>(entry->data), int(entry->size));
        return QString::fromLatin1(bytes.constData()).trimmed(); // up to the closing zero
    }

    int number(ExifTag tag) const
    {
        const ExifEntry *entry = find(tag, EXIF_FORMAT_SHORT, 2);
        return entry ? exif_get_short(entry->data, order) : 0;
    }

    double fraction(ExifTag tag) const
    {
        const ExifEntry *entry = find(tag, EXIF_FORMAT_RATIONAL, 8);
        if (!entry)
            return 0;
        const ExifRational value = exif_get_rational(entry->data, order);
        return value.denominator == 0 ? 0 : double(value.numerator) / value.denominator;
    }

    std::optional<double> signedFraction(ExifTag tag) const
    {
        const ExifEntry *entry = find(tag, EXIF_FORMAT_SRATIONAL, 8);
        if (!entry)
            return std::nullopt;
        const ExifSRational value = exif_get_srational(entry->data, order);
        if (value.denominator == 0)
            return std::nullopt;
        return double(value.numerator) / value.denominator;
    }

private:
    const ExifEntry *find(ExifTag tag, ExifFormat format, unsigned leastBytes) const
    {
        const ExifEntry *entry = exif_content_get_entry(content, tag);
        const bool isUsable =
            entry && entry->data && entry->format == format && entry->size >= leastBytes;
        return isUsable ? entry : nullptr;
    }

    ExifContent *content;
    ExifByteOrder order;
};

QDateTime timeOf(const Directory &exposure)
{
    QDateTime time = QDateTime::fromString(exposure.text(EXIF_TAG_DATE_TIME_ORIGINAL),
                                           QStringLiteral("yyyy:MM:dd HH:mm:ss"));
    time.setTimeSpec(Qt::UTC);
    // Digits behind the decimal point, as many as the camera likes.
    const QString digits = exposure.text(EXIF_TAG_SUB_SEC_TIME_ORIGINAL);
    const double fraction = (QStringLiteral("0.") + digits).toDouble();
    return time.isValid() ? time.addMSecs(std::lround(fraction * 1000)) : time;
}

/// Header fields of JPEG, PNG and TIFF files.
Shot readFromExif(const QString &path)
{
    Shot shot;
    if (const exif::Data data = exif::parse(exif::read(path))) {
        const Directory picture(*data, EXIF_IFD_0);
        const Directory exposure(*data, EXIF_IFD_EXIF);
        shot.model = picture.text(EXIF_TAG_MODEL);
        shot.takenAt = timeOf(exposure);
        shot.orientation = qBound(1, picture.number(EXIF_TAG_ORIENTATION), 8);
        shot.exposureBias = exposure.signedFraction(EXIF_TAG_EXPOSURE_BIAS_VALUE);
        shot.exposureSeconds = exposure.fraction(EXIF_TAG_EXPOSURE_TIME);
        shot.fNumber = exposure.fraction(EXIF_TAG_FNUMBER);
        shot.iso = exposure.number(EXIF_TAG_ISO_SPEED_RATINGS);
    }
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    shot.size = reader.size();
    if (shot.orientation >= 5)
        shot.size.transpose();
    return shot;
}

} // namespace

std::optional<double> Shot::exposureStops() const
{
    if (exposureSeconds <= 0 || fNumber <= 0 || iso <= 0)
        return std::nullopt;
    return std::log2(exposureSeconds * iso / (fNumber * fNumber));
}

ShotReading readShot(const QString &path)
{
    ShotReading reading;
    reading.shot = VeskRawType::isRaw(path) ? readRawShot(path) : readFromExif(path);
    const Shot &shot = reading.shot;
    reading.shot.path = path;
    if (!shot.takenAt.isValid())
        reading.problem = QStringLiteral("it does not say when it was taken");
    else if (!shot.exposureBias && !shot.exposureStops())
        reading.problem = QStringLiteral("it does not say how it was exposed");
    else if (shot.size.isEmpty())
        reading.problem = QStringLiteral("its size cannot be read");
    return reading;
}
