#include "exif_block.h"

#include <QtEndian>

#include <algorithm>

namespace {

const QByteArray kSignature("Exif\0\0", 6);
constexpr qsizetype kSmallestBlock = 8; // the header alone
/// Far more than cameras write; damaged files claim more than there is memory.
constexpr qint64 kLargestBlock = 16 << 20;

/// The next bytes, or none when the file has not as many.
QByteArray next(QIODevice &file, qint64 count)
{
    const QByteArray bytes = file.read(count);
    return bytes.size() == count ? bytes : QByteArray();
}

bool skip(QIODevice &file, qint64 count)
{
    return count <= file.size() - file.pos() && file.seek(file.pos() + count);
}

QByteArray withoutSignature(const QByteArray &bytes)
{
    const QByteArray block = bytes.startsWith(kSignature) ? bytes.mid(kSignature.size()) : bytes;
    return block.size() >= kSmallestBlock ? block : QByteArray();
}

/// The kind of the next segment, whose length follows; 0 at the end. Stray bytes before it are
/// passed over, as decoders do.
uchar nextMarker(QIODevice &file)
{
    constexpr char kMark = '\xFF';
    char byte = 0;
    while (file.getChar(&byte) && byte != kMark) {
    }
    while (byte == kMark) {
        if (!file.getChar(&byte))
            return 0;
    }
    return static_cast<uchar>(byte);
}

/// Segments are: 0xFF, their kind, a length that counts its own two bytes, the rest.
QByteArray blockInJpeg(QIODevice &file)
{
    constexpr uchar kFirstWithLength = 0xC0;
    constexpr uchar kLastRestart = 0xD7;
    constexpr uchar kStartOfImage = 0xD8;
    constexpr uchar kEndOfImage = 0xD9;
    constexpr uchar kStartOfScan = 0xDA;
    constexpr uchar kExif = 0xE1;
    while (const uchar marker = nextMarker(file)) {
        const bool isBare = marker < kFirstWithLength || (marker >= 0xD0 && marker <= kLastRestart);
        if (isBare || marker == kStartOfImage)
            continue;
        const QByteArray length = next(file, 2);
        if (marker == kEndOfImage || marker == kStartOfScan || length.isEmpty())
            return {};
        const int bytes = std::max(0, qFromBigEndian<quint16>(length.constData()) - 2);
        const bool isExif = marker == kExif && file.peek(kSignature.size()) == kSignature;
        if (isExif && bytes >= kSignature.size() + kSmallestBlock)
            return withoutSignature(next(file, bytes));
        if (!skip(file, bytes))
            return {};
    }
    return {};
}

/// Chunks are: length, name, that many bytes, checksum.
QByteArray blockInPng(QIODevice &file)
{
    constexpr qint64 kFileSignatureBytes = 8;
    constexpr qint64 kChecksumBytes = 4;
    file.seek(kFileSignatureBytes);
    while (true) {
        const QByteArray head = next(file, 8);
        if (head.isEmpty())
            return {};
        const qint64 length = qFromBigEndian<quint32>(head.constData());
        if (head.endsWith("eXIf"))
            return length <= kLargestBlock ? withoutSignature(next(file, length)) : QByteArray();
        if (!skip(file, length + kChecksumBytes))
            return {};
    }
}

/// Chunks are: name, length, that many bytes, and one more if that is odd.
QByteArray blockInWebP(QIODevice &file)
{
    constexpr qint64 kFileHeaderBytes = 12;
    file.seek(kFileHeaderBytes);
    while (true) {
        const QByteArray head = next(file, 8);
        if (head.isEmpty())
            return {};
        const qint64 length = qFromLittleEndian<quint32>(head.constData() + 4);
        if (head.startsWith("EXIF"))
            return length <= kLargestBlock ? withoutSignature(next(file, length)) : QByteArray();
        if (!skip(file, length + length % 2))
            return {};
    }
}

QByteArray find(QIODevice &file)
{
    file.seek(0);
    const QByteArray start = file.peek(12);
    if (start.startsWith("\xFF\xD8"))
        return blockInJpeg(file);
    if (start.startsWith("\x89PNG"))
        return blockInPng(file);
    const bool isWebP = start.startsWith("RIFF") && start.endsWith("WEBP");
    return isWebP ? blockInWebP(file) : QByteArray();
}

} // namespace

QByteArray exif::blockIn(QIODevice &file)
{
    const QByteArray block = find(file);
    file.seek(0);
    return block;
}
