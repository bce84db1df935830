#include "metadata_reader.h"

#include "FileParts.h"
#include "XmpPacket.h"
#include "avif_decoder.h"
#include "exif_metadata.h"
#include "file_names.h"
#include "iptc_data.h"
#include "jxl_decoder.h"
#include "packet_compression.h"
#include "tiff_packets.h"
#include "xmp_namespaces.h"

#include <VeskRawType.h>

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <vector>

namespace {

constexpr qint64 kLargestSidecar = 4 << 20;

const QByteArray kXmpSignature("http://ns.adobe.com/xap/1.0/\0", 29);
const QByteArray kExtensionSignature("http://ns.adobe.com/xmp/extension/\0", 35);
const QByteArray kPhotoshopSignature("Photoshop 3.0\0", 14);

/// Its bytes behind the signature; nothing when it begins in another way.
QByteArray behind(const QByteArray &signature, const FileParts &part)
{
    return part.start(signature.size()) == signature ? part.bytes().mid(signature.size())
                                                     : QByteArray();
}

/// A piece of a packet that is too long for one segment.
struct Extension
{
    QByteArray packet; ///< name of the packet that it belongs to
    quint32 length = 0;
    quint32 place = 0;
    QByteArray bytes;
};

/// Pieces are: name of 32 characters, length of the whole, place in it, bytes.
Extension extensionOf(const QByteArray &segment)
{
    constexpr qsizetype kNameBytes = 32;
    constexpr qsizetype kHeadBytes = kNameBytes + 8;
    if (segment.size() < kHeadBytes)
        return {};
    return {segment.left(kNameBytes), qFromBigEndian<quint32>(segment.constData() + kNameBytes),
            qFromBigEndian<quint32>(segment.constData() + kNameBytes + 4), segment.mid(kHeadBytes)};
}

/// The packet of that name; nothing unless all its pieces are there.
QByteArray joined(std::vector<Extension> pieces, const QByteArray &name)
{
    std::stable_sort(
        pieces.begin(), pieces.end(),
        [](const Extension &one, const Extension &other) { return one.place < other.place; });
    QByteArray packet;
    qint64 length = 0;
    for (const Extension &piece : pieces) {
        if (piece.packet != name || piece.place != packet.size())
            continue;
        packet += piece.bytes;
        length = piece.length;
    }
    return packet.size() == length ? packet : QByteArray();
}

/// The packet as it is, unless there is more of it.
QByteArray withExtension(const QByteArray &packet, const std::vector<Extension> &pieces)
{
    if (pieces.empty())
        return packet;
    std::optional<XmpPacket> standard = XmpPacket::parse(packet);
    if (!standard)
        return packet;
    const QByteArray name = standard->text(xmp::kNote, "HasExtendedXMP").toLatin1();
    const std::optional<XmpPacket> extended = XmpPacket::parse(joined(pieces, name));
    standard->remove(xmp::kNote, "HasExtendedXMP");
    if (extended)
        standard->add(*extended);
    return standard->serialized();
}

QByteArray xmpInJpeg(FileParts &parts)
{
    QByteArray packet;
    std::vector<Extension> pieces;
    while (parts.next()) {
        if (parts.name() != "\xE1")
            continue;
        const QByteArray standard = behind(kXmpSignature, parts);
        if (packet.isEmpty())
            packet = standard;
        const QByteArray extension = behind(kExtensionSignature, parts);
        if (!extension.isEmpty())
            pieces.push_back(extensionOf(extension));
    }
    return withExtension(packet, pieces);
}

/// A text chunk is: keyword, zero, whether it is compressed, how, language, zero, keyword in that
/// language, zero, text.
QByteArray textIn(const QByteArray &chunk)
{
    const QByteArray keyword("XML:com.adobe.xmp\0", 18);
    if (!chunk.startsWith(keyword) || chunk.size() < keyword.size() + 4)
        return {};
    const bool isCompressed = chunk[keyword.size()] != '\0';
    const qsizetype language = chunk.indexOf('\0', keyword.size() + 2);
    const qsizetype translated = language < 0 ? -1 : chunk.indexOf('\0', language + 1);
    if (translated < 0)
        return {};
    const QByteArray text = chunk.mid(translated + 1);
    return isCompressed ? packet_compression::inflate(text) : text;
}

QByteArray xmpInPng(FileParts &parts)
{
    while (parts.next()) {
        if (parts.name() != "iTXt")
            continue;
        const QByteArray packet = textIn(parts.bytes());
        if (!packet.isEmpty())
            return packet;
    }
    return {};
}

QByteArray xmpInWebP(FileParts &parts)
{
    while (parts.next()) {
        if (parts.name() == "XMP ")
            return parts.bytes();
    }
    return {};
}

/// Of a file without parts.
QByteArray xmpInOther(QIODevice &file)
{
    QByteArray packet;
#ifdef VESK_WITH_AVIF
    packet = avif_decoder::xmpIn(file);
#endif
#ifdef VESK_WITH_JXL
    if (packet.isEmpty())
        packet = jxl_decoder::xmpIn(file);
#endif
    return packet.isEmpty() ? tiff_packets::xmpIn(file) : packet;
}

QByteArray iptcInJpeg(FileParts &parts)
{
    QByteArray block;
    while (parts.next()) {
        if (parts.name() == "\xED")
            block += behind(kPhotoshopSignature, parts);
    }
    return iptc::inPhotoshopBlock(block);
}

QByteArray packetIn(const QString &sidecar)
{
    const file_names::ReadablePath readable(sidecar);
    QFile file(readable.path());
    return !sidecar.isEmpty() && file.size() <= kLargestSidecar && file.open(QIODevice::ReadOnly)
               ? file.readAll()
               : QByteArray();
}

/// What one of them cannot be read for is not asked of the other.
QByteArray merged(const QByteArray &sidecar, const QByteArray &packet)
{
    std::optional<XmpPacket> first = XmpPacket::parse(sidecar);
    if (!first || packet.isEmpty())
        return first ? sidecar : packet;
    if (const std::optional<XmpPacket> second = XmpPacket::parse(packet))
        first->add(*second);
    return first->serialized();
}

} // namespace

QByteArray metadata::xmpIn(QIODevice &file)
{
    FileParts parts(file);
    switch (parts.kind()) {
    case FileParts::Kind::Jpeg:
        return xmpInJpeg(parts);
    case FileParts::Kind::Png:
        return xmpInPng(parts);
    case FileParts::Kind::WebP:
        return xmpInWebP(parts);
    case FileParts::Kind::Other:
        break;
    }
    return xmpInOther(file);
}

QByteArray metadata::iptcIn(QIODevice &file)
{
    FileParts parts(file);
    return parts.kind() == FileParts::Kind::Jpeg    ? iptcInJpeg(parts)
           : parts.kind() == FileParts::Kind::Other ? tiff_packets::iptcIn(file)
                                                    : QByteArray();
}

QString metadata::sidecarOf(const QString &path)
{
    const QFileInfo file(path);
    QStringList names{file.fileName()};
    if (VeskRawType::isRaw(file_names::ReadablePath(path).path()))
        names += file.completeBaseName();
    for (const QString &name : std::as_const(names)) {
        for (const char *suffix : {".xmp", ".XMP"}) {
            const QString sidecar = file.path() + u'/' + name + QLatin1String(suffix);
            const file_names::ReadablePath beside(sidecar);
            if (QFileInfo(beside.path()).isFile())
                return sidecar;
        }
    }
    return {};
}

Metadata metadata::read(const QString &name)
{
    const file_names::ReadablePath path(name);
    QFile file(path.path());
    if (!QFileInfo(path.path()).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    return {exif::read(name), merged(packetIn(sidecarOf(name)), xmpIn(file)), iptcIn(file)};
}
