#include "picture_rating.h"

#include "OutputFile.h"
#include "XmpPacket.h"
#include "metadata_reader.h"
#include "xmp_namespaces.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>

namespace {

struct PictureRating
{
    Q_DECLARE_TR_FUNCTIONS(PictureRating)
};

/// Empty when there is no such file; nothing when it cannot be read.
std::optional<XmpPacket> packetOf(const QString &sidecar)
{
    if (sidecar.isEmpty())
        return XmpPacket();
    QFile file(sidecar);
    return file.open(QIODevice::ReadOnly) ? XmpPacket::parse(file.readAll()) : std::nullopt;
}

} // namespace

int rating::in(const QByteArray &xmp)
{
    // Most pictures have none: reading folders stays quick.
    if (!xmp.contains("Rating"))
        return 0;
    const std::optional<XmpPacket> packet = XmpPacket::parse(xmp);
    return packet ? std::clamp(packet->text(xmp::kBasic, "Rating").toInt(), 0, kMost) : 0;
}

QString rating::write(const QString &picturePath, int stars)
{
    const QString sidecar = metadata::sidecarOf(picturePath);
    std::optional<XmpPacket> packet = packetOf(sidecar);
    if (!packet)
        return PictureRating::tr("its XMP file cannot be read");
    packet->setText(xmp::kBasic, "Rating", QString::number(std::clamp(stars, 0, kMost)));
    const QString target = sidecar.isEmpty() ? picturePath + QStringLiteral(".xmp") : sidecar;
    OutputFile file(target, true);
    if (!file.open())
        return file.reason();
    const QByteArray bytes = packet->serialized();
    if (file.device().write(bytes) != bytes.size() || !file.publish())
        return file.reason().isEmpty() ? file.device().errorString() : file.reason();
    return {};
}
