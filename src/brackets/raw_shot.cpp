#include "raw_shot.h"

#include <QFile>
#include <QtEndian>

#include <array>
#include <cmath>
#include <memory>

#include <libraw/libraw.h>

namespace {

constexpr int kDateTimeOriginal = 0x9003;
constexpr int kExposureBiasValue = 0x9204;
constexpr int kSubSecTimeOriginal = 0x9291;
constexpr unsigned kLittleEndian = 0x4949;

/// What LibRaw knows of, but does not keep.
struct Unkept
{
    QByteArray takenAt;
    QByteArray subSeconds;
    std::optional<double> exposureBias;
};

qint32 longAt(const char *bytes, unsigned order)
{
    return order == kLittleEndian ? qFromLittleEndian<qint32>(bytes)
                                  : qFromBigEndian<qint32>(bytes);
}

/// The library calls it at each entry, with the stream at the value, and moves on by itself.
void collect(void *context, int tag, int, int length, unsigned order, void *stream, INT64)
{
    auto *unkept = static_cast<Unkept *>(context);
    auto *bytes = static_cast<LibRaw_abstract_datastream *>(stream);
    std::array<char, 32> value = {};
    const auto wanted = std::min(size_t(std::max(length, 0)), value.size() - 1);
    if (tag == kExposureBiasValue && bytes->read(value.data(), 1, 8) == 8) {
        const qint32 denominator = longAt(value.data() + 4, order);
        if (denominator != 0)
            unkept->exposureBias = double(longAt(value.data(), order)) / denominator;
    } else if (tag == kDateTimeOriginal && bytes->read(value.data(), 1, wanted) > 0) {
        unkept->takenAt = value.data();
    } else if (tag == kSubSecTimeOriginal && bytes->read(value.data(), 1, wanted) > 0) {
        unkept->subSeconds = value.data();
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

QDateTime timeOf(const Unkept &unkept)
{
    QDateTime time = QDateTime::fromString(QString::fromLatin1(unkept.takenAt),
                                           QStringLiteral("yyyy:MM:dd HH:mm:ss"));
    time.setTimeSpec(Qt::UTC);
    const double fraction = ("0." + unkept.subSeconds.trimmed()).toDouble();
    return time.isValid() ? time.addMSecs(std::lround(fraction * 1000)) : time;
}

} // namespace

Shot readRawShot(const QString &path)
{
    Shot shot;
    const auto raw = std::make_unique<LibRaw>(); // too large for the stack
    Unkept unkept;
    raw->set_exifparser_handler(&collect, &unkept);
    if (raw->open_file(QFile::encodeName(path).constData()) != LIBRAW_SUCCESS ||
        raw->adjust_sizes_info_only() != LIBRAW_SUCCESS)
        return shot;
    const libraw_data_t &header = raw->imgdata;
    shot.model = QString::fromLatin1(header.idata.model);
    shot.takenAt = timeOf(unkept);
    shot.size = QSize(header.sizes.iwidth, header.sizes.iheight);
    shot.orientation = orientationOf(header.sizes.flip);
    shot.exposureBias = unkept.exposureBias;
    shot.exposureSeconds = double(header.other.shutter);
    shot.fNumber = double(header.other.aperture);
    shot.iso = int(header.other.iso_speed);
    return shot;
}
