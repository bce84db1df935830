#include "multi_picture.h"

#include "byte_order.h"

#include <algorithm>

namespace {

const QByteArray kSignature("MPF\0", multi_picture::kSignatureBytes);
constexpr qsizetype kFieldBytes = 12;
constexpr qsizetype kEntryBytes = 16;
constexpr quint32 kMostPictures = 100;

enum Tag : quint16 { Version = 0xB000, PictureCount = 0xB001, Entries = 0xB002 };
enum Type : quint16 { Long = 4, Undefined = 7 };

class Writer
{
public:
    void put16(quint16 number) { append(number); }
    void put32(quint32 number) { append(number); }
    void putField(Tag tag, Type type, quint32 count)
    {
        put16(tag);
        put16(type);
        put32(count);
    }

    QByteArray bytes = kSignature;

private:
    template <typename Number>
    void append(Number number)
    {
        bytes += byte_order::written(number, true);
    }
};

void putEntry(Writer &writer, quint32 attribute, qint64 length, qint64 offset)
{
    writer.put32(attribute);
    writer.put32(quint32(length));
    writer.put32(quint32(offset));
    writer.put32(0); // depends on no other pictures
}

/// TIFF's numbers in the byte order of the segment; 0 beyond its end.
class Reader
{
public:
    explicit Reader(const QByteArray &segment)
        : bytes(segment.mid(multi_picture::kSignatureBytes))
        , isBigEndian(bytes.startsWith("MM"))
    {
    }

    bool isSound() const { return isBigEndian || bytes.startsWith("II"); }
    quint16 number16(qint64 place) const { return at<quint16>(place); }
    quint32 number32(qint64 place) const { return at<quint32>(place); }
    bool holds(qint64 place, qint64 count) const
    {
        return place >= 0 && count <= bytes.size() && place <= bytes.size() - count;
    }

private:
    template <typename Number>
    Number at(qint64 place) const
    {
        return holds(place, qint64(sizeof(Number)))
                   ? byte_order::read<Number>(bytes.constData() + place, isBigEndian)
                   : Number(0);
    }

    const QByteArray bytes;
    const bool isBigEndian;
};

} // namespace

QByteArray multi_picture::segment(qint64 firstBytes, qint64 secondBytes, qint64 headerOffset)
{
    constexpr quint32 kPictures = 2;
    constexpr quint32 kDirectory = 8;
    constexpr quint16 kFields = 3;
    constexpr quint32 kBehindDirectory = kDirectory + 2 + kFields * kFieldBytes + 4;
    constexpr quint32 kIsRepresentative = 1U << 29U;
    constexpr quint32 kPrimaryPicture = 0x030000;
    Writer writer;
    writer.bytes += QByteArray("MM\0*", 4);
    writer.put32(kDirectory);
    writer.put16(kFields);
    writer.putField(Version, Undefined, 4);
    writer.bytes += "0100";
    writer.putField(PictureCount, Long, 1);
    writer.put32(kPictures);
    writer.putField(Entries, Undefined, kPictures * kEntryBytes);
    writer.put32(kBehindDirectory);
    writer.put32(0); // no further directory
    putEntry(writer, kIsRepresentative | kPrimaryPicture, firstBytes, 0);
    putEntry(writer, 0, secondBytes, firstBytes - headerOffset);
    return writer.bytes;
}

bool multi_picture::isSegment(const QByteArray &bytes)
{
    return bytes.startsWith(kSignature);
}

QList<multi_picture::Place> multi_picture::laterPictures(const QByteArray &bytes,
                                                         qint64 headerOffset)
{
    const Reader reader(bytes);
    if (!reader.isSound())
        return {};
    const qint64 directory = reader.number32(4);
    const int fields = reader.number16(directory);
    qint64 entries = 0;
    quint32 count = 0;
    for (qint64 i = 0; i < fields; ++i) {
        const qint64 field = directory + 2 + i * kFieldBytes;
        if (!reader.holds(field, kFieldBytes))
            return {};
        if (reader.number16(field) != Entries)
            continue;
        count = reader.number32(field + 4) / kEntryBytes;
        entries = reader.number32(field + 8);
    }
    QList<Place> places;
    for (qint64 i = 1; i < std::min(count, kMostPictures); ++i) {
        const qint64 entry = entries + i * kEntryBytes;
        if (!reader.holds(entry, kEntryBytes))
            break;
        places += {headerOffset + reader.number32(entry + 8), reader.number32(entry + 4)};
    }
    return places;
}
