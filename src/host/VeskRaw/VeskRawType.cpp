#include "VeskRawType.h"

#include "TiffFirstDirectory.h"

#include <libraw/libraw.h>

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <memory>

namespace {

struct Signature
{
    int offset;
    QLatin1String text;
};

template <int N>
constexpr Signature at(int offset, const char (&text)[N])
{
    return {offset, QLatin1String(text, N - 1)};
}

/// How ordinary pictures begin. None of them is a raw file, although LibRaw would take
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

template <std::size_t N>
bool startsWithOne(const QByteArray &head, const std::array<Signature, N> &signatures)
{
    return std::any_of(signatures.begin(), signatures.end(), [&head](const Signature &signature) {
        return head.mid(signature.offset, signature.text.size()) ==
               QByteArray::fromRawData(signature.text.data(), signature.text.size());
    });
}

/// Size of the sensor's picture, nothing when LibRaw does not take the file for raw.
std::optional<QSize> rawSize(const QString &path)
{
    try {
        const auto raw = std::make_unique<LibRaw>(); // too large for a thread's stack
        if (raw->open_file(QFile::encodeName(path).constData()) != LIBRAW_SUCCESS)
            return std::nullopt;
        return QSize(raw->imgdata.sizes.raw_width, raw->imgdata.sizes.raw_height);
    } catch (...) {
        return std::nullopt;
    }
}

/// Whether what LibRaw takes for a sensor's data is the first picture of a TIFF file that
/// any viewer shows. It goes by the camera's name, which programs leave in the pictures they write.
/// The backs of some studio cameras do store their data like that, but never in 8 bits.
bool isOrdinaryTiff(QFile &file, const QSize &sensorSize, bool hasRawSuffix)
{
    const std::optional<TiffFirstDirectory> directory = TiffFirstDirectory::read(file);
    return directory && directory->isViewable && !directory->isDng &&
           directory->size == sensorSize && (!hasRawSuffix || directory->bitsPerSample <= 8);
}

} // namespace

bool VeskRawType::isRaw(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray head = file.peek(16);
    if (startsWithOne(head, kPictureSignatures))
        return false;
    const bool hasRawSuffix = suffixes().contains(QFileInfo(path).suffix().toLower());
    if (!hasRawSuffix && !startsWithOne(head, kRawSignatures))
        return false;
    const std::optional<QSize> size = rawSize(path);
    return size && !isOrdinaryTiff(file, *size, hasRawSuffix);
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
