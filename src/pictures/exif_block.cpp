#include "exif_block.h"

#include "FileParts.h"
#include "avif_decoder.h"
#include "jxl_decoder.h"

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

/// By the libraries that read them.
QByteArray blockInModern([[maybe_unused]] QIODevice &file)
{
    QByteArray block;
#ifdef VESK_WITH_AVIF
    block = avif_decoder::exifIn(file);
#endif
#ifdef VESK_WITH_JXL
    if (block.isEmpty())
        block = jxl_decoder::exifIn(file);
#endif
    return withoutSignature(block);
}

} // namespace

QByteArray exif::blockIn(QIODevice &file)
{
    QByteArray block;
    FileParts parts(file);
    if (parts.kind() == FileParts::Kind::Other)
        block = blockInModern(file);
    while (parts.next()) {
        if (!isExif(parts))
            continue;
        block = withoutSignature(parts.bytes());
        break;
    }
    file.seek(0);
    return block;
}
