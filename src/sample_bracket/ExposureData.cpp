#include "ExposureData.h"

#include <ExifTags.h>

#include <zlib.h>

#include <QtEndian>

#include <cmath>

namespace sample {

namespace {

using Directory = ExifTags::Directory;

QByteArray paddedNumber(int number, int digits)
{
    return QByteArray::number(number).rightJustified(digits, '0');
}

/// "2024:06:15 10:42:07". Put together by hand: the first QDateTime::toString of a process sets up
/// Qt's calendars, which several threads at once do not survive.
QByteArray exifTime(const QDateTime &moment)
{
    const QDate date = moment.date();
    const QTime time = moment.time();
    return paddedNumber(date.year(), 4) + ':' + paddedNumber(date.month(), 2) + ':' +
           paddedNumber(date.day(), 2) + ' ' + paddedNumber(time.hour(), 2) + ':' +
           paddedNumber(time.minute(), 2) + ':' + paddedNumber(time.second(), 2);
}

/// Big-endian length and more, as both file formats have them.
template <typename Integer>
QByteArray bigEndian(Integer value)
{
    QByteArray bytes(sizeof value, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray pngChunk(const QByteArray &type, const QByteArray &content)
{
    const QByteArray body = type + content;
    const uLong sum =
        crc32(0, reinterpret_cast<const Bytef *>(body.constData()), static_cast<uInt>(body.size()));
    return bigEndian(static_cast<quint32>(content.size())) + body +
           bigEndian(static_cast<quint32>(sum));
}

} // namespace

QByteArray exifBlock(const ExposureData &exposure, QSize size)
{
    ExifTags tags;
    const QByteArray taken = exifTime(exposure.takenAt);
    tags.setText(Directory::Picture, ExifTags::Make, "Vesk");
    tags.setText(Directory::Picture, ExifTags::Model, "Vesk Sample Camera");
    tags.setShort(Directory::Picture, ExifTags::Orientation, 1);
    tags.setText(Directory::Picture, ExifTags::DateTime, taken);
    // Times that a shutter has are powers of two, so this fraction is exact.
    constexpr quint32 kTimeUnits = 1 << 20;
    tags.setFraction(Directory::Exposure, ExifTags::ExposureTime,
                     static_cast<quint32>(std::lround(exposure.exposureTime * kTimeUnits)),
                     kTimeUnits);
    tags.setFraction(Directory::Exposure, ExifTags::FNumber,
                     static_cast<quint32>(std::lround(exposure.fNumber * 10.0)), 10);
    tags.setShort(Directory::Exposure, ExifTags::Sensitivity, static_cast<quint16>(exposure.iso));
    tags.setBytes(Directory::Exposure, ExifTags::ExifVersion, "0230");
    tags.setText(Directory::Exposure, ExifTags::DateTimeOriginal, taken);
    tags.setText(Directory::Exposure, ExifTags::SubSecondsOriginal,
                 paddedNumber(exposure.takenAt.time().msec(), 3));
    tags.setSignedFraction(Directory::Exposure, ExifTags::ExposureBias,
                           static_cast<qint32>(std::lround(exposure.stops * 100.0)), 100);
    tags.setLong(Directory::Exposure, ExifTags::PixelWidth, static_cast<quint32>(size.width()));
    tags.setLong(Directory::Exposure, ExifTags::PixelHeight, static_cast<quint32>(size.height()));
    return QByteArray("Exif\0\0", 6) + tags.block();
}

QByteArray withExif(const QByteArray &encoded, const QByteArray &exif)
{
    QByteArray result = encoded;
    if (encoded.startsWith("\xFF\xD8")) {
        const auto length = static_cast<quint16>(exif.size() + 2);
        result.insert(2, "\xFF\xE1" + bigEndian(length) + exif);
    } else if (encoded.startsWith("\x89PNG")) {
        // After the signature (8 bytes) and the header chunk (25); PNG leaves out the "Exif" mark.
        result.insert(33, pngChunk("eXIf", exif.mid(6)));
    }
    return result;
}

} // namespace sample
