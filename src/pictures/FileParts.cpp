#include "FileParts.h"

#include <QtEndian>

#include <algorithm>

namespace {

/// Far more than cameras write; damaged files claim more than there is memory.
constexpr qint64 kLargestPart = 16 << 20;

/// The next bytes, or none when the file has not as many.
QByteArray read(QIODevice &file, qint64 count)
{
    const QByteArray bytes = file.read(count);
    return bytes.size() == count ? bytes : QByteArray();
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

/// Markers that no length follows.
bool isBare(uchar marker)
{
    constexpr uchar kFirstWithLength = 0xC0;
    constexpr uchar kFirstRestart = 0xD0;
    constexpr uchar kStartOfImage = 0xD8;
    return marker < kFirstWithLength || (marker >= kFirstRestart && marker <= kStartOfImage);
}

} // namespace

FileParts::FileParts(QIODevice &device)
    : file(device)
{
    file.seek(0);
    const QByteArray start = file.peek(12);
    if (start.startsWith("\xFF\xD8")) {
        kindOfFile = Kind::Jpeg;
    } else if (start.startsWith("\x89PNG")) {
        kindOfFile = Kind::Png;
        nextHead = 8;
    } else if (start.startsWith("RIFF") && start.endsWith("WEBP")) {
        kindOfFile = Kind::WebP;
        nextHead = 12;
    }
}

bool FileParts::next()
{
    if (kindOfFile == Kind::Other || nextHead > file.size() || !file.seek(nextHead))
        return false;
    return kindOfFile == Kind::Jpeg ? nextSegment() : nextChunk();
}

bool FileParts::enter(const QByteArray &name, qint64 length, qint64 bytesBehind)
{
    partName = name;
    partLength = length;
    begin = file.pos();
    nextHead = begin + length + bytesBehind;
    return true;
}

/// Segments are: 0xFF, their kind, a length that counts its own two bytes, the rest.
bool FileParts::nextSegment()
{
    constexpr uchar kEndOfImage = 0xD9;
    constexpr uchar kStartOfScan = 0xDA;
    while (const uchar marker = nextMarker(file)) {
        if (isBare(marker))
            continue;
        const QByteArray length = read(file, 2);
        if (marker == kEndOfImage || marker == kStartOfScan || length.isEmpty())
            return false;
        const int bytes = std::max(0, qFromBigEndian<quint16>(length.constData()) - 2);
        return enter(QByteArray(1, char(marker)), bytes, 0);
    }
    return false;
}

/// PNG chunks are: length, name, that many bytes, checksum. WebP chunks are: name, length, that
/// many bytes, and one more if that is odd.
bool FileParts::nextChunk()
{
    const QByteArray head = read(file, 8);
    if (head.isEmpty())
        return false;
    constexpr qint64 kChecksumBytes = 4;
    if (kindOfFile == Kind::Png)
        return enter(head.mid(4), qFromBigEndian<quint32>(head.constData()), kChecksumBytes);
    const qint64 length = qFromLittleEndian<quint32>(head.constData() + 4);
    return enter(head.left(4), length, length % 2);
}

QByteArray FileParts::start(qint64 count) const
{
    file.seek(begin);
    return file.read(std::min(count, partLength));
}

QByteArray FileParts::bytes() const
{
    return partLength <= kLargestPart && file.seek(begin) ? read(file, partLength) : QByteArray();
}
