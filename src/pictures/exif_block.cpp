#include "exif_block.h"

#include "FileParts.h"

namespace {

const QByteArray kSignature("Exif\0\0", 6);
constexpr qsizetype kSmallestBlock = 8; // the header alone

bool isExif(const FileParts &part)
{
    switch (part.kind()) {
    case FileParts::Kind::Jpeg:
        return part.name() == "\xE1" && part.length() >= kSignature.size() + kSmallestBlock &&
               part.start(kSignature.size()) == kSignature;
    case FileParts::Kind::Png:
        return part.name() == "eXIf";
    case FileParts::Kind::WebP:
        return part.name() == "EXIF";
    case FileParts::Kind::Other:
        break;
    }
    return false;
}

QByteArray withoutSignature(const QByteArray &bytes)
{
    const QByteArray block = bytes.startsWith(kSignature) ? bytes.mid(kSignature.size()) : bytes;
    return block.size() >= kSmallestBlock ? block : QByteArray();
}

} // namespace

QByteArray exif::blockIn(QIODevice &file)
{
    QByteArray block;
    FileParts parts(file);
    while (parts.next()) {
        if (!isExif(parts))
            continue;
        block = withoutSignature(parts.bytes());
        break;
    }
    file.seek(0);
    return block;
}
