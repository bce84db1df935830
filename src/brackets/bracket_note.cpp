#include "bracket_note.h"

#include "byte_order.h"

#include <cmath>

namespace {

constexpr double kMostStops = 10;

std::optional<double> ifSensible(double stops)
{
    return std::abs(stops) <= kMostStops ? std::optional(stops) : std::nullopt;
}

/// One directory of a maker note. Its places count from somewhere before or within the note.
class NoteDirectory
{
public:
    struct Value
    {
        qint64 begin = 0;
        quint32 count = 0;
    };

    NoteDirectory(const QByteArray &note, qint64 countedFrom, bool bigEndian)
        : bytes(note)
        , base(countedFrom)
        , isBigEndian(bigEndian)
    {
    }

    /// Of a tag whose value does not fit into its entry.
    std::optional<Value> find(qint64 directory, quint16 tag) const
    {
        constexpr qint64 kEntryBytes = 12;
        const qint64 end = directory + 2 + number<quint16>(directory).value_or(0) * kEntryBytes;
        for (qint64 entry = directory + 2; entry < end; entry += kEntryBytes) {
            const auto count = number<quint32>(entry + 4);
            const auto place = number<quint32>(entry + 8);
            if (number<quint16>(entry) == tag && count && place)
                return Value{*place + base, *count};
        }
        return std::nullopt;
    }

    template <typename Number>
    std::optional<Number> number(qint64 at) const
    {
        if (at < 0 || at + qint64(sizeof(Number)) > bytes.size())
            return std::nullopt;
        return byte_order::read<Number>(bytes.constData() + at, isBigEndian);
    }

private:
    const QByteArray &bytes;
    const qint64 base;
    const bool isBigEndian;
};

/// The note holds a TIFF file of its own behind ten bytes; the value is a fraction.
std::optional<double> nikonStops(const QByteArray &note)
{
    constexpr quint16 kBracketValue = 0x0019;
    constexpr qint64 kBegin = 10;
    const NoteDirectory directory(note, kBegin, note.mid(kBegin, 2) == "MM");
    const auto first = directory.number<quint32>(kBegin + 4);
    const auto value = first ? directory.find(kBegin + *first, kBracketValue) : std::nullopt;
    if (!value)
        return std::nullopt;
    const auto numerator = directory.number<qint32>(value->begin);
    const auto denominator = directory.number<qint32>(value->begin + 4);
    return numerator && denominator.value_or(0) != 0 ? ifSensible(double(*numerator) / *denominator)
                                                     : std::nullopt;
}

/// The note is a directory, whose places count from the first byte of the block around it. The
/// value is one of many short numbers, in 32nds of a stop.
std::optional<double> canonStops(const ExifTags::Entry &note, bool isBigEndian)
{
    constexpr quint16 kShotInfo = 4;
    constexpr quint32 kBracketValue = 16;
    const NoteDirectory directory(note.value, -qint64(note.place), isBigEndian);
    const auto value = directory.find(0, kShotInfo);
    if (!value || value->count <= kBracketValue)
        return std::nullopt;
    const auto steps = directory.number<qint16>(value->begin + 2 * qint64(kBracketValue));
    return steps ? ifSensible(*steps / 32.0) : std::nullopt;
}

} // namespace

std::optional<double> brackets::bracketStopsIn(const ExifTags &tags)
{
    using Directory = ExifTags::Directory;
    const ExifTags::Entry *note = tags.find(Directory::Exposure, ExifTags::MakerNote);
    if (!note)
        return std::nullopt;
    if (note->value.startsWith("Nikon"))
        return nikonStops(note->value);
    const QString make = tags.text(Directory::Picture, ExifTags::Make);
    return make.startsWith(QLatin1String("Canon")) ? canonStops(*note, tags.hasBigEndianNumbers())
                                                   : std::nullopt;
}
