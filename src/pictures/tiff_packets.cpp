#include "tiff_packets.h"

#include "byte_order.h"
#include "iptc_data.h"

namespace {

constexpr qint64 kHeaderBytes = 8;
constexpr qint64 kEntryBytes = 12;
constexpr qint64 kLargestPacket = 4 << 20;

enum Tag : quint16 { Xmp = 0x2BC, Datasets = 0x83BB, PhotoshopBlock = 0x8649 };

QByteArray bytesAt(QIODevice &file, qint64 place, qint64 length)
{
    if (length > kLargestPacket || place + length > file.size() || !file.seek(place))
        return {};
    const QByteArray bytes = file.read(length);
    return bytes.size() == length ? bytes : QByteArray();
}

/// Programs declare the same bytes as bytes, as undefined or as words of four.
qint64 lengthOf(quint16 type, quint32 count)
{
    constexpr quint16 kByte = 1;
    constexpr quint16 kText = 2;
    constexpr quint16 kLong = 4;
    constexpr quint16 kUndefined = 7;
    const bool areBytes = type == kByte || type == kText || type == kUndefined;
    return areBytes ? count : type == kLong ? 4 * qint64(count) : 0;
}

QByteArray packetIn(QIODevice &file, Tag wanted)
{
    const QByteArray header = bytesAt(file, 0, kHeaderBytes);
    const bool isBigEndian = header.startsWith("MM");
    if (header.isEmpty() || (!isBigEndian && !header.startsWith("II")))
        return {};
    const qint64 place = byte_order::read<quint32>(header.constData() + 4, isBigEndian);
    const QByteArray head = bytesAt(file, place, 2);
    if (head.isEmpty())
        return {};
    const qint64 count = byte_order::read<quint16>(head.constData(), isBigEndian);
    const QByteArray entries = bytesAt(file, place + 2, count * kEntryBytes);
    for (qint64 at = 0; at < entries.size(); at += kEntryBytes) {
        const char *entry = entries.constData() + at;
        if (byte_order::read<quint16>(entry, isBigEndian) != wanted)
            continue;
        const qint64 length = lengthOf(byte_order::read<quint16>(entry + 2, isBigEndian),
                                       byte_order::read<quint32>(entry + 4, isBigEndian));
        return bytesAt(file, byte_order::read<quint32>(entry + 8, isBigEndian), length);
    }
    return {};
}

} // namespace

QByteArray tiff_packets::xmpIn(QIODevice &file)
{
    return packetIn(file, Xmp);
}

QByteArray tiff_packets::iptcIn(QIODevice &file)
{
    const QByteArray datasets = packetIn(file, Datasets);
    return datasets.isEmpty() ? iptc::inPhotoshopBlock(packetIn(file, PhotoshopBlock)) : datasets;
}
