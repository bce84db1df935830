#include "gain_map_jpeg.h"

#include "byte_order.h"
#include "gain_map_terms.h"
#include "jpeg_encoder.h"
#include "multi_picture.h"

#include <QBuffer>

namespace {

// Errors of a map are errors in light: it is small and pays for little compression.
constexpr int kMapQuality = 92;

QByteArray segmentOf(const QByteArray &contents)
{
    return "\xFF\xE2" + byte_order::written(quint16(contents.size() + 2), true) + contents;
}

/// Where segments may be put in: behind JFIF's head and the camera's data, where CIPA DC-007, 5.1,
/// wants the list of pictures. file: as the encoder writes it.
qsizetype placeForSegments(const QByteArray &file)
{
    const auto lengthAt = [&file](qsizetype place) {
        return qsizetype(byte_order::read<quint16>(file.constData() + place + 2, true));
    };
    constexpr qsizetype kStart = 2;
    const qsizetype behindHead = kStart + 2 + lengthAt(kStart);
    const bool hasCamera = file.mid(behindHead, 2) == "\xFF\xE1" &&
                           file.mid(behindHead + 4, 5) == QByteArray("Exif\0", 5);
    return hasCamera ? behindHead + 2 + lengthAt(behindHead) : behindHead;
}

QString encodeMap(const GainMap &map, QByteArray &file)
{
    XmpPacket packet;
    gain_map_terms::putTerms(map.terms, packet);
    PictureMetadata metadata;
    metadata.xmp = packet.serialized();
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    const QString problem = jpeg_file::encode(map.picture, metadata, kMapQuality, buffer, {});
    if (problem.isEmpty())
        file.insert(placeForSegments(file), segmentOf(gain_map_terms::iso(map.terms)));
    return problem;
}

QByteArray withDirectory(const QByteArray &xmp, qsizetype mapBytes)
{
    std::optional<XmpPacket> packet = XmpPacket::parse(xmp);
    if (!packet)
        packet.emplace();
    gain_map_terms::putDirectory(mapBytes, *packet);
    return packet->serialized();
}

/// The two APP2 segments of the base.
QByteArray baseSegments(qsizetype baseBytes, qsizetype mapBytes, qsizetype place)
{
    constexpr qsizetype kHeadBytes = 4;
    const QByteArray version = segmentOf(gain_map_terms::isoVersion());
    const qsizetype listBytes = segmentOf(multi_picture::segment(0, 0, 0)).size();
    return segmentOf(multi_picture::segment(baseBytes + listBytes + version.size(), mapBytes,
                                            place + kHeadBytes + multi_picture::kSignatureBytes)) +
           version;
}

} // namespace

QString jpeg_file::encodeWithGainMap(const QImage &picture, const PictureMetadata &metadata,
                                     int quality, const GainMap &map, QIODevice &device,
                                     const EncodeProgress &progress)
{
    QByteArray mapFile;
    QString problem = encodeMap(map, mapFile);
    PictureMetadata own = metadata;
    own.xmp = withDirectory(metadata.xmp, mapFile.size());
    QByteArray base;
    QBuffer buffer(&base);
    buffer.open(QIODevice::WriteOnly);
    if (problem.isEmpty())
        problem = encode(picture, own, quality, buffer, progress);
    if (!problem.isEmpty())
        return problem;
    const qsizetype place = placeForSegments(base);
    const QByteArray segments = baseSegments(base.size(), mapFile.size(), place);
    const bool isWritten =
        encoding::writeAll(device, base.constData(), place) &&
        encoding::writeAll(device, segments.constData(), segments.size()) &&
        encoding::writeAll(device, base.constData() + place, base.size() - place) &&
        encoding::writeAll(device, mapFile.constData(), mapFile.size());
    return isWritten ? QString() : PictureEncoder::tr("the JPEG file could not be written");
}
