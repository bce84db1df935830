#include "TiffFirstDirectory.h"

#include <QDataStream>
#include <QIODevice>

namespace {

enum Tag : quint16 {
    Width = 256,
    Height = 257,
    BitsPerSample = 258,
    Photometric = 262,
    DngVersion = 50706
};
enum Type : quint16 { Short = 3, Long = 4 };

// Photometric interpretations from grey to CIE L*a*b*; mosaics have numbers far above.
constexpr quint32 kLastViewablePhotometric = 8;

constexpr qint64 kFirstEntryOffset = 2;
constexpr qint64 kEntrySize = 12;

/// Leaves stream behind the byte order mark and the magic number.
bool readHeader(QDataStream &stream)
{
    quint16 order = 0;
    quint16 magic = 0;
    stream >> order;
    if (order == 0x4949)
        stream.setByteOrder(QDataStream::LittleEndian);
    else if (order != 0x4D4D)
        return false;
    stream >> magic;
    return magic == 42;
}

/// First value of the entry whose tag has just been read.
quint32 readFirstValue(QDataStream &stream)
{
    quint16 type = 0;
    quint32 count = 0;
    stream >> type >> count;
    if (type == Short && count > 2) {
        quint32 offset = 0;
        stream >> offset;
        stream.device()->seek(offset);
    }
    if (type == Short) {
        quint16 value = 0;
        stream >> value;
        return value;
    }
    quint32 value = 0;
    if (type == Long)
        stream >> value;
    return value;
}

void readEntry(QDataStream &stream, TiffFirstDirectory &directory)
{
    quint16 tag = 0;
    stream >> tag;
    switch (tag) {
    case Width:
        directory.size.setWidth(static_cast<int>(readFirstValue(stream)));
        break;
    case Height:
        directory.size.setHeight(static_cast<int>(readFirstValue(stream)));
        break;
    case BitsPerSample:
        directory.bitsPerSample = static_cast<int>(readFirstValue(stream));
        break;
    case Photometric:
        directory.isViewable = readFirstValue(stream) <= kLastViewablePhotometric;
        break;
    case DngVersion:
        directory.isDng = true;
        break;
    default:
        break;
    }
}

} // namespace

std::optional<TiffFirstDirectory> TiffFirstDirectory::read(QIODevice &device)
{
    device.seek(0);
    QDataStream stream(&device);
    quint32 start = 0;
    if (!readHeader(stream))
        return std::nullopt;
    stream >> start;
    quint16 count = 0;
    if (!device.seek(start))
        return std::nullopt;
    stream >> count;

    TiffFirstDirectory directory;
    for (int i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        if (!device.seek(start + kFirstEntryOffset + i * kEntrySize))
            return std::nullopt;
        readEntry(stream, directory);
    }
    if (stream.status() != QDataStream::Ok)
        return std::nullopt;
    return directory;
}
