#include "ExifTags.h"

#include "ExifBlockWriter.h"
#include "byte_order.h"

#include <QBuffer>

#include <algorithm>

namespace {

constexpr qint64 kHeaderBytes = 8;
constexpr qint64 kEntryBytes = 12;
constexpr qint64 kInlineBytes = 4;
/// Of all values together: maker notes with previews have some MB, and damaged files claim more
/// than there is memory.
constexpr qint64 kLargestContent = 8 << 20;

/// Bytes of one number of the type; 0 for types that nobody has defined.
qint64 sizeOf(quint16 type)
{
    constexpr std::array<quint8, 14> kSizes = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};
    return type < kSizes.size() ? kSizes[type] : 0;
}

/// Tags of IFD0 that tell how a TIFF file stores its pixels, and what is kept in another way.
bool describesStorage(quint16 tag)
{
    const bool isLayout = tag <= 0x10D || tag == 0x111;
    const bool isStrips = tag == 0x115 || tag == 0x116 || tag == 0x117;
    const bool isPlanarOrPage = tag == 0x11C || tag == 0x11D || tag == 0x129;
    const bool isCodingOrTiles = tag == 0x13D || (tag >= 0x140 && tag <= 0x15B);
    const bool isJpegInside = tag >= 0x200 && tag <= 0x209;
    const bool isColourCoding = tag == 0x211 || tag == 0x212 || tag == 0x214;
    const bool isPacket = tag == 0x2BC || tag == 0x83BB || tag == 0x8649 || tag == 0x8773;
    const bool isPrivate = tag == 0x8290 || tag >= 0xC000;
    return isLayout || isStrips || isPlanarOrPage || isCodingOrTiles || isJpegInside ||
           isColourCoding || isPacket || isPrivate;
}

bool pointsToDirectory(quint16 tag)
{
    return tag == ExifTags::ExposureDirectory || tag == ExifTags::PlaceDirectory ||
           tag == ExifTags::InteroperabilityDirectory;
}

} // namespace

/// Reads one file's directories.
class ExifTagsReader
{
public:
    explicit ExifTagsReader(QIODevice &source)
        : device(source)
    {
    }
    ExifTags read();

private:
    using Directory = ExifTags::Directory;
    template <typename Number>
    Number number(const QByteArray &bytes, qint64 at) const
    {
        return byte_order::read<Number>(bytes.constData() + at, tags.isBigEndian);
    }
    QByteArray bytesAt(qint64 place, qint64 length);
    void readDirectory(Directory directory, quint32 place);
    void readEntry(Directory directory, const QByteArray &field, quint32 fieldPlace);
    void readBelow(Directory parent, quint16 tag, quint32 place);

    QIODevice &device;
    ExifTags tags;
    qint64 left = kLargestContent;
};

/// Empty when they are not all there.
QByteArray ExifTagsReader::bytesAt(qint64 place, qint64 length)
{
    if (length > left || place + length > device.size() || !device.seek(place))
        return {};
    left -= length;
    const QByteArray bytes = device.read(length);
    return bytes.size() == length ? bytes : QByteArray();
}

ExifTags ExifTagsReader::read()
{
    const QByteArray header = bytesAt(0, kHeaderBytes);
    tags.isBigEndian = header.startsWith("MM");
    if (header.isEmpty() || (!tags.isBigEndian && !header.startsWith("II")))
        return {};
    constexpr quint16 kTiff = 42;
    if (number<quint16>(header, 2) != kTiff)
        return {};
    readDirectory(Directory::Picture, number<quint32>(header, 4));
    return std::move(tags);
}

void ExifTagsReader::readDirectory(Directory directory, quint32 place)
{
    const QByteArray head = bytesAt(place, 2);
    if (head.isEmpty())
        return;
    const int count = number<quint16>(head, 0);
    for (int i = 0; i < count; ++i) {
        const qint64 fieldPlace = place + 2 + i * kEntryBytes;
        const QByteArray field = bytesAt(fieldPlace, kEntryBytes);
        if (field.isEmpty())
            return;
        readEntry(directory, field, static_cast<quint32>(fieldPlace));
    }
}

void ExifTagsReader::readEntry(Directory directory, const QByteArray &field, quint32 fieldPlace)
{
    ExifTags::Entry entry;
    entry.tag = number<quint16>(field, 0);
    entry.type = number<quint16>(field, 2);
    entry.count = number<quint32>(field, 4);
    if (pointsToDirectory(entry.tag))
        return readBelow(directory, entry.tag, number<quint32>(field, 8));
    const qint64 length = sizeOf(entry.type) * entry.count;
    const bool isUnwanted = directory == Directory::Picture && describesStorage(entry.tag);
    if (length == 0 || isUnwanted || tags.find(directory, entry.tag))
        return;
    constexpr quint32 kInlinePlace = 8;
    entry.place =
        length <= kInlineBytes ? fieldPlace + kInlinePlace : number<quint32>(field, kInlinePlace);
    entry.value =
        length <= kInlineBytes ? field.mid(kInlinePlace, length) : bytesAt(entry.place, length);
    if (!entry.value.isEmpty() && entry.place >= kHeaderBytes)
        tags.directories[size_t(directory)].push_back(entry);
}

/// Each directory has its parent, so one that names itself or another above it is not read again.
void ExifTagsReader::readBelow(Directory parent, quint16 tag, quint32 place)
{
    const Directory below = tag == ExifTags::ExposureDirectory ? Directory::Exposure
                            : tag == ExifTags::PlaceDirectory  ? Directory::Place
                                                               : Directory::Interoperability;
    const Directory expected =
        below == Directory::Interoperability ? Directory::Exposure : Directory::Picture;
    if (parent == expected && tags.entries(below).empty())
        readDirectory(below, place);
}

ExifTags ExifTags::read(QIODevice &device)
{
    return ExifTagsReader(device).read();
}

ExifTags ExifTags::parse(const QByteArray &block)
{
    constexpr QByteArrayView kSignature("Exif\0\0", 6);
    QByteArray bytes = block.startsWith(kSignature) ? block.mid(kSignature.size()) : block;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return read(buffer);
}

bool ExifTags::isEmpty() const
{
    return std::all_of(directories.begin(), directories.end(),
                       [](const Entries &entries) { return entries.empty(); });
}

const ExifTags::Entry *ExifTags::find(Directory directory, quint16 tag) const
{
    for (const Entry &entry : entries(directory)) {
        if (entry.tag == tag)
            return &entry;
    }
    return nullptr;
}

QString ExifTags::text(Directory directory, quint16 tag) const
{
    const Entry *entry = find(directory, tag);
    return entry && entry->type == Text ? QString::fromLatin1(entry->value.constData()).trimmed()
                                        : QString();
}

std::optional<quint32> ExifTags::number(Directory directory, quint16 tag) const
{
    const Entry *entry = find(directory, tag);
    if (entry && entry->type == Short)
        return byte_order::read<quint16>(entry->value.constData(), isBigEndian);
    if (entry && entry->type == Long)
        return byte_order::read<quint32>(entry->value.constData(), isBigEndian);
    return std::nullopt;
}

std::optional<double> ExifTags::fraction(Directory directory, quint16 tag) const
{
    const Entry *entry = find(directory, tag);
    if (!entry || (entry->type != Ratio && entry->type != SignedRatio))
        return std::nullopt;
    const auto numerator = byte_order::read<quint32>(entry->value.constData(), isBigEndian);
    const auto denominator = byte_order::read<quint32>(entry->value.constData() + 4, isBigEndian);
    if (denominator == 0)
        return std::nullopt;
    return entry->type == Ratio
               ? double(numerator) / denominator
               : double(static_cast<qint32>(numerator)) / static_cast<qint32>(denominator);
}

QByteArray ExifTags::bytesOf(quint32 value) const
{
    return byte_order::written(value, isBigEndian);
}

QByteArray ExifTags::bytesOf(quint16 value) const
{
    return byte_order::written(value, isBigEndian);
}

void ExifTags::set(Directory directory, Entry entry)
{
    remove(directory, entry.tag);
    directories[size_t(directory)].push_back(std::move(entry));
}

void ExifTags::setText(Directory directory, quint16 tag, const QByteArray &text)
{
    const QByteArray closed = text + '\0';
    set(directory, {tag, Text, static_cast<quint32>(closed.size()), closed, 0});
}

void ExifTags::setBytes(Directory directory, quint16 tag, const QByteArray &bytes)
{
    set(directory, {tag, Undefined, static_cast<quint32>(bytes.size()), bytes, 0});
}

void ExifTags::setShort(Directory directory, quint16 tag, quint16 value)
{
    set(directory, {tag, Short, 1, bytesOf(value), 0});
}

void ExifTags::setLong(Directory directory, quint16 tag, quint32 value)
{
    set(directory, {tag, Long, 1, bytesOf(value), 0});
}

void ExifTags::setFraction(Directory directory, quint16 tag, quint32 numerator, quint32 denominator)
{
    set(directory, {tag, Ratio, 1, bytesOf(numerator) + bytesOf(denominator), 0});
}

void ExifTags::setSignedFraction(Directory directory, quint16 tag, qint32 numerator,
                                 qint32 denominator)
{
    set(directory,
        {tag, SignedRatio, 1,
         bytesOf(static_cast<quint32>(numerator)) + bytesOf(static_cast<quint32>(denominator)), 0});
}

void ExifTags::remove(Directory directory, quint16 tag)
{
    Entries &all = directories[size_t(directory)];
    all.erase(std::remove_if(all.begin(), all.end(),
                             [tag](const Entry &entry) { return entry.tag == tag; }),
              all.end());
}

QByteArray ExifTags::block() const
{
    return isEmpty() ? QByteArray() : ExifBlockWriter(*this).write();
}

void ExifTags::forgetPlaceOfMakerNote()
{
    for (Entry &entry : directories[size_t(Directory::Exposure)]) {
        if (entry.tag == MakerNote)
            entry.place = 0;
    }
}
