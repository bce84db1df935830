#include "vesk_raw_type.h"

#include <libraw/libraw.h>

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cstring>

namespace {

struct Signature
{
    int offset;
    const char *text;
    int length;
};

template <int N>
constexpr Signature at(int offset, const char (&text)[N])
{
    return {offset, text, N - 1};
}

/// How ordinary pictures begin. None of them is a raw file, although the raw library would take
/// some of them for the raw files of cameras that hide raw data behind such a picture.
constexpr std::array kPictureSignatures{
    at(0, "\xFF\xD8\xFF"), // JPEG
    at(0, "\x89PNG"),      at(0, "GIF8"), at(0, "BM"), at(8, "WEBP"),
};

/// How raw files begin. Some raw files have no signature at all and are told by their length; these
/// are taken for raw only under a raw suffix.
constexpr std::array kRawSignatures{
    at(0, "II*\0"),    at(0, "MM\0*"),                // TIFF: DNG, NEF, CR2, ARW, KDC and many more
    at(0, "IIRO"),     at(0, "IIRS"),  at(0, "MMOR"), // ORF
    at(0, "IIU\0"),                                   // RW2
    at(0, "FUJIFILM"),                                // RAF
    at(0, "\0MRM"),                                   // MRW
    at(6, "HEAPCCDR"),                                // CRW
    at(4, "ftypcrx"),                                 // CR3
    at(0, "FOVb"),                                    // X3F
};

bool startsWithOne(const QByteArray &head, const Signature *signatures, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        const Signature &signature = signatures[i];
        if (head.size() >= signature.offset + signature.length &&
            std::memcmp(head.constData() + signature.offset, signature.text,
                        static_cast<std::size_t>(signature.length)) == 0)
            return true;
    }
    return false;
}

bool rawLibraryOpens(const QString &path)
{
    try {
        const auto raw = std::make_unique<LibRaw>();
        return raw->open_file(QFile::encodeName(path).constData()) == LIBRAW_SUCCESS;
    } catch (...) {
        return false;
    }
}

} // namespace

bool VeskRawType::isRaw(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray head = file.read(16);
    file.close();
    if (startsWithOne(head, kPictureSignatures.data(), kPictureSignatures.size()))
        return false;
    const bool rawSuffix = suffixes().contains(QFileInfo(path).suffix().toLower());
    if (!rawSuffix && !startsWithOne(head, kRawSignatures.data(), kRawSignatures.size()))
        return false;
    return rawLibraryOpens(path);
}

QStringList VeskRawType::suffixes()
{
    static const QStringList list =
        QStringLiteral("3fr ari arw bay cap cr2 cr3 crw dcr dcs dng drf eip erf fff gpr iiq k25 "
                       "kdc mdc mef mos mrw nef nrw orf pef ptx pxn r3d raf raw rw2 rwl rwz sr2 "
                       "srf srw x3f")
            .split(QLatin1Char(' '));
    return list;
}
