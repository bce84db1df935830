#include "exif_thumbnail.h"

#include "byte_order.h"

#include <optional>

namespace {

/// Numbers of a block, each checked for its place.
class Block
{
public:
    explicit Block(const QByteArray &block)
        : bytes(block)
        , isBigEndian(block.startsWith("MM"))
    {
    }

    template <typename Number>
    std::optional<Number> at(qint64 place) const
    {
        if (place < 0 || place + qint64(sizeof(Number)) > bytes.size())
            return std::nullopt;
        return byte_order::read<Number>(bytes.constData() + place, isBigEndian);
    }

    /// Where the directory behind the one at this place begins; 0 when there is none.
    quint32 directoryBehind(quint32 place) const
    {
        const auto count = at<quint16>(place);
        return count ? at<quint32>(placeOf(place, *count)).value_or(0) : 0;
    }

    /// A whole number in that directory; 0 when there is none.
    quint32 number(quint32 directory, quint16 tag) const
    {
        constexpr quint16 kShort = 3;
        const int count = at<quint16>(directory).value_or(0);
        for (int i = 0; i < count; ++i) {
            const qint64 entry = placeOf(directory, i);
            if (at<quint16>(entry) != tag)
                continue;
            return at<quint16>(entry + 2) == kShort ? at<quint16>(entry + 8).value_or(0)
                                                    : at<quint32>(entry + 8).value_or(0);
        }
        return 0;
    }

private:
    static qint64 placeOf(quint32 directory, int entry)
    {
        constexpr qint64 kEntryBytes = 12;
        return qint64(directory) + 2 + entry * kEntryBytes;
    }

    const QByteArray &bytes;
    const bool isBigEndian;
};

} // namespace

QByteArray exif::thumbnailIn(const QByteArray &bytes)
{
    constexpr quint16 kPlace = 0x0201;
    constexpr quint16 kLength = 0x0202;
    const Block block(bytes);
    const quint32 first = block.at<quint32>(4).value_or(0);
    const quint32 second = first > 0 ? block.directoryBehind(first) : 0;
    if (second == 0)
        return {};
    const quint32 place = block.number(second, kPlace);
    const quint32 length = block.number(second, kLength);
    if (place == 0 || length == 0 || qint64(place) + length > bytes.size())
        return {};
    const QByteArray file = bytes.mid(place, length);
    return file.startsWith("\xFF\xD8") ? file : QByteArray();
}
