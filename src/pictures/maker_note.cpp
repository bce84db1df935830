#include "maker_note.h"

#include "byte_order.h"

#include <algorithm>
#include <array>

namespace {

constexpr qint64 kCountBytes = 2;
constexpr qint64 kEntryBytes = 12;

bool startsWithAny(const QByteArray &note, std::initializer_list<QByteArrayView> heads)
{
    return std::any_of(heads.begin(), heads.end(),
                       [&note](QByteArrayView head) { return note.startsWith(head); });
}

qint64 sizeOf(quint16 type)
{
    constexpr std::array<qint64, 14> kSizes = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};
    return type < kSizes.size() ? kSizes[type] : 0;
}

/// Where the directory begins in notes whose kind is known to count from the block's first byte.
qint64 directoryIn(const QByteArray &note)
{
    if (startsWithAny(note,
                      {{"SONY DSC \0\0\0", 12}, {"SONY CAM \0\0\0", 12}, {"Panasonic\0\0\0", 12}}))
        return 12;
    if (startsWithAny(note, {{"OLYMP\0", 6}}))
        return 8;
    return 0; // Canon's and others', which have no head
}

/// Calls visit with the type, the number of values and the place field of each entry; false when
/// there is no directory of that kind, or visit says so.
template <typename Visit>
bool forEachEntry(const QByteArray &note, qint64 begin, bool isBigEndian, const Visit &visit)
{
    if (note.size() < begin + kCountBytes)
        return false;
    const int count = byte_order::read<quint16>(note.constData() + begin, isBigEndian);
    if (count == 0 || note.size() < begin + kCountBytes + count * kEntryBytes)
        return false;
    for (int i = 0; i < count; ++i) {
        const char *entry = note.constData() + begin + kCountBytes + i * kEntryBytes;
        if (!visit(byte_order::read<quint16>(entry + 2, isBigEndian),
                   byte_order::read<quint32>(entry + 4, isBigEndian),
                   byte_order::read<quint32>(entry + 8, isBigEndian)))
            return false;
    }
    return true;
}

} // namespace

bool maker_note::isSelfContained(const QByteArray &note)
{
    return startsWithAny(note, {{"Nikon\0\2", 7},
                                {"FUJIFILM", 8},
                                {"OLYMPUS\0", 8},
                                {"OM SYSTEM\0", 10},
                                {"Apple iOS\0", 10},
                                {"PENTAX \0", 8}});
}

bool maker_note::isWhole(const QByteArray &note, qint64 place, bool isBigEndian)
{
    if (isSelfContained(note))
        return true;
    const qint64 begin = directoryIn(note);
    const bool isDirectory = forEachEntry(
        note, begin, isBigEndian, [](quint16 type, quint32, quint32) { return sizeOf(type) != 0; });
    if (!isDirectory)
        return true;
    return forEachEntry(note, begin, isBigEndian, [&](quint16 type, quint32 count, quint32 at) {
        const qint64 length = sizeOf(type) * count;
        constexpr qint64 kInlineBytes = 4;
        return length <= kInlineBytes || (at >= place && at + length <= place + note.size());
    });
}
