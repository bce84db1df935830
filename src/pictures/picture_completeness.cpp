#include "picture_completeness.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

/// Reads numbers, little-endian unless told otherwise; after the end of the file every number is 0
/// and hasEnded is true.
class Reader
{
public:
    explicit Reader(QFile &source)
        : file(source)
    {
        file.seek(0);
    }
    ~Reader() { file.seek(0); }
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;

    template <typename Number>
    Number next()
    {
        Number number = 0;
        if (file.read(reinterpret_cast<char *>(&number), sizeof number) != sizeof number) {
            hasEnded = true;
            return 0;
        }
        return isBigEndian ? qFromBigEndian(number) : qFromLittleEndian(number);
    }

    void skip(qint64 bytes)
    {
        if (bytes > file.size() - file.pos() || !file.seek(file.pos() + bytes))
            hasEnded = true;
    }

    QFile &file;
    bool isBigEndian = false;
    bool hasEnded = false;
};

bool isBmpComplete(Reader &reader)
{
    constexpr quint32 kCoreHeader = 12;
    constexpr quint32 kNoCompression = 0;
    constexpr quint32 kBitFields = 3;
    const qint64 fileSize = reader.file.size();

    reader.skip(2); // "BM"
    const qint64 statedFileSize = reader.next<quint32>();
    reader.skip(4);
    const qint64 pixelOffset = reader.next<quint32>();
    const auto headerSize = reader.next<quint32>();
    const bool isCore = headerSize == kCoreHeader;
    const qint64 width = isCore ? reader.next<quint16>() : reader.next<qint32>();
    const qint64 height = isCore ? reader.next<quint16>() : reader.next<qint32>();
    reader.skip(2);
    const qint64 bitsPerPixel = reader.next<quint16>();
    const quint32 compression = isCore ? kNoCompression : reader.next<quint32>();
    if (reader.hasEnded || width <= 0)
        return false;
    if (compression != kNoCompression && compression != kBitFields)
        return statedFileSize <= fileSize;
    const qint64 rowBytes = (width * bitsPerPixel + 31) / 32 * 4;
    return std::llabs(height) <= (fileSize - pixelOffset) / std::max<qint64>(rowBytes, 1);
}

void skipGifColourTable(Reader &reader, quint8 flags)
{
    const bool hasTable = flags & 0x80;
    if (hasTable)
        reader.skip(qint64(3) << ((flags & 7) + 1));
}

void skipGifDataBlocks(Reader &reader)
{
    while (const auto length = reader.next<quint8>())
        reader.skip(length);
}

void skipGifFrame(Reader &reader)
{
    reader.skip(8);
    skipGifColourTable(reader, reader.next<quint8>());
    reader.skip(1);
    skipGifDataBlocks(reader);
}

bool isGifComplete(Reader &reader)
{
    constexpr quint8 kExtension = 0x21;
    constexpr quint8 kFrame = 0x2C;
    constexpr quint8 kTrailer = 0x3B;

    reader.skip(10);
    const auto flags = reader.next<quint8>();
    reader.skip(2);
    skipGifColourTable(reader, flags);
    while (!reader.hasEnded) {
        const auto block = reader.next<quint8>();
        if (reader.hasEnded)
            break;
        if (block == kTrailer)
            return true;
        if (block == kFrame) {
            skipGifFrame(reader);
        } else if (block == kExtension) {
            reader.skip(1);
            skipGifDataBlocks(reader);
        }
    }
    return false;
}

qint64 tiffValueBytes(quint16 type)
{
    constexpr std::array<qint64, 19> kBytes = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4,
                                               8, 4, 8, 4, 0, 0, 8, 8, 8};
    return type < kBytes.size() ? kBytes[type] : 0;
}

/// One entry of a directory: tag, type, count, and the values themselves or where they are.
bool isTiffEntryComplete(Reader &reader, bool isBig)
{
    // The reader checks that the pixels are there, but makes up a colour table that is not. What
    // private tags say matters to others.
    constexpr quint16 kFirstPrivateTag = 0x8000;
    const auto tag = reader.next<quint16>();
    const qint64 valueBytes = tiffValueBytes(reader.next<quint16>());
    const quint64 count = isBig ? reader.next<quint64>() : reader.next<quint32>();
    const quint64 offset = isBig ? reader.next<quint64>() : reader.next<quint32>();
    if (reader.hasEnded)
        return false;
    const auto fileSize = static_cast<quint64>(reader.file.size());
    const bool isInside = count <= (isBig ? 8U : 4U) / std::max<quint64>(quint64(valueBytes), 1);
    if (tag >= kFirstPrivateTag || valueBytes == 0 || isInside)
        return true;
    return offset <= fileSize && count <= (fileSize - offset) / quint64(valueBytes);
}

bool isTiffComplete(Reader &reader)
{
    constexpr quint16 kBigEndianMark = 0x4D4D; // "MM"
    constexpr quint16 kBigTiff = 43;
    reader.isBigEndian = reader.next<quint16>() == kBigEndianMark;
    const bool isBig = reader.next<quint16>() == kBigTiff;
    if (isBig)
        reader.skip(4);
    const quint64 directory = isBig ? reader.next<quint64>() : reader.next<quint32>();
    if (reader.hasEnded || directory >= quint64(reader.file.size()))
        return false;
    reader.file.seek(qint64(directory));
    const quint64 entryCount = isBig ? reader.next<quint64>() : reader.next<quint16>();
    for (quint64 i = 0; i < entryCount; ++i) {
        if (!isTiffEntryComplete(reader, isBig))
            return false;
    }
    return true;
}

} // namespace

bool picture::isComplete(QFile &file, const QByteArray &format)
{
    Reader reader(file);
    if (format == "bmp" || format == "dib")
        return isBmpComplete(reader);
    if (format == "gif")
        return isGifComplete(reader);
    if (format == "tiff" || format == "tif")
        return isTiffComplete(reader);
    return true;
}
