#include "raw_shot.h"

#include "byte_order.h"
#include "exif_metadata.h"

#include <QFile>

#include <array>
#include <memory>

#include <libraw/libraw.h>

namespace {

constexpr unsigned kLittleEndian = 0x4949;

/// What LibRaw reads, but does not keep.
struct HeaderFields
{
    QByteArray takenAt;
    QByteArray subSeconds;
    std::optional<double> exposureBias;
    std::optional<quint32> exposureMode;
};

/// The library calls it at each entry, with the stream at the value, and moves on by itself.
void collect(void *context, int tag, int, int length, unsigned order, void *stream, INT64)
{
    auto *fields = static_cast<HeaderFields *>(context);
    auto *bytes = static_cast<LibRaw_abstract_datastream *>(stream);
    std::array<char, 32> value = {};
    const auto wanted = std::min(size_t(std::max(length, 0)), value.size() - 1);
    if (tag == ExifTags::ExposureBias && bytes->read(value.data(), 1, 8) == 8) {
        const bool isBigEndian = order != kLittleEndian;
        const auto numerator = byte_order::read<qint32>(value.data(), isBigEndian);
        const auto denominator = byte_order::read<qint32>(value.data() + 4, isBigEndian);
        if (denominator != 0)
            fields->exposureBias = double(numerator) / denominator;
    } else if (tag == ExifTags::ExposureMode && bytes->read(value.data(), 1, 2) == 2) {
        fields->exposureMode = byte_order::read<quint16>(value.data(), order != kLittleEndian);
    } else if (tag == ExifTags::DateTimeOriginal && bytes->read(value.data(), 1, wanted) > 0) {
        fields->takenAt = value.data();
    } else if (tag == ExifTags::SubSecondsOriginal && bytes->read(value.data(), 1, wanted) > 0) {
        fields->subSeconds = value.data();
    }
}

int orientationOf(int flip)
{
    switch (flip) {
    case 3:
        return 3;
    case 5:
        return 8;
    case 6:
        return 6;
    default:
        return 1;
    }
}

} // namespace

Shot brackets::readRawShot(const QString &path)
{
    Shot shot;
    const auto raw = std::make_unique<LibRaw>(); // too large for the stack
    HeaderFields fields;
    raw->set_exifparser_handler(&collect, &fields);
    if (raw->open_file(QFile::encodeName(path).constData()) != LIBRAW_SUCCESS ||
        raw->adjust_sizes_info_only() != LIBRAW_SUCCESS)
        return shot;
    const libraw_data_t &header = raw->imgdata;
    shot.model = QString::fromLatin1(header.idata.model);
    shot.takenAt =
        exif::momentOf(QString::fromLatin1(fields.takenAt), QString::fromLatin1(fields.subSeconds));
    shot.size = QSize(header.sizes.iwidth, header.sizes.iheight);
    shot.orientation = orientationOf(header.sizes.flip);
    shot.exposureBias = fields.exposureBias;
    shot.mode = brackets::modeOf(fields.exposureMode);
    shot.serial = QString::fromLatin1(header.shootinginfo.BodySerial);
    shot.lens = QString::fromLatin1(header.lens.Lens);
    shot.focalLength = double(header.other.focal_len);
    shot.exposureSeconds = double(header.other.shutter);
    shot.fNumber = double(header.other.aperture);
    shot.iso = int(header.other.iso_speed);
    return shot;
}
