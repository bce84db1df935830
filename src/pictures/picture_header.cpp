#include "picture_header.h"

#include "FileParts.h"
#include "avif_decoder.h"
#include "cicp_profile.h"
#include "exr_decoder.h"
#include "hdr_decoder.h"
#include "jxl_decoder.h"
#include "packet_compression.h"
#include "tiff_file.h"

#include <QImageReader>
#include <QPixelFormat>
#include <QtEndian>

#include <array>
#include <map>
#include <memory>

#include <lcms2.h>

namespace {

/// Start-of-frame segments, but for the tables that lie among their numbers.
bool isFrame(uchar marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

/// Pieces of a profile are: signature, number, how many there are, bytes.
void collectProfile(const QByteArray &segment, std::map<uchar, QByteArray> &pieces)
{
    const QByteArray signature("ICC_PROFILE\0", 12);
    if (segment.startsWith(signature) && segment.size() > signature.size() + 2)
        pieces[uchar(segment[signature.size()])] = segment.mid(signature.size() + 2);
}

PictureHeader jpegHeader(FileParts &parts)
{
    PictureHeader header;
    header.format = QStringLiteral("JPEG");
    std::map<uchar, QByteArray> pieces;
    while (parts.next()) {
        if (parts.name() == "\xE2")
            collectProfile(parts.bytes(), pieces);
        const QByteArray frame = isFrame(uchar(parts.name()[0])) ? parts.start(5) : QByteArray();
        if (frame.size() < 5)
            continue;
        header.bitsPerSample = uchar(frame[0]);
        header.size = QSize(qFromBigEndian<quint16>(frame.constData() + 3),
                            qFromBigEndian<quint16>(frame.constData() + 1));
    }
    for (const auto &[number, bytes] : pieces)
        header.profile += bytes;
    return header;
}

/// A profile chunk is: name, zero, how it is compressed, bytes.
QByteArray profileIn(const QByteArray &chunk)
{
    const qsizetype end = chunk.indexOf('\0');
    return end < 0 ? QByteArray() : packet_compression::inflate(chunk.mid(end + 2));
}

PictureHeader pngHeader(FileParts &parts)
{
    PictureHeader header;
    header.format = QStringLiteral("PNG");
    while (parts.next() && parts.name() != "IDAT") {
        const QByteArray start = parts.start(9);
        if (parts.name() == "IHDR" && start.size() == 9) {
            header.size = QSize(int(qFromBigEndian<quint32>(start.constData())),
                                int(qFromBigEndian<quint32>(start.constData() + 4)));
            header.bitsPerSample = uchar(start[8]);
        } else if (parts.name() == "iCCP") {
            header.profile = profileIn(parts.bytes());
        } else if (parts.name() == "cICP" && start.size() >= 2) {
            header.colours = cicp_profile::nameOf(uchar(start[0]), uchar(start[1]));
        } else if (parts.name() == "sRGB" && header.colours.isEmpty() && header.profile.isEmpty()) {
            header.colours = QStringLiteral("sRGB");
        }
    }
    return header;
}

std::optional<PictureHeader> tiffHeader(QIODevice &file)
{
    const tiff_file::File tiff = tiff_file::open(file, "r");
    if (!tiff)
        return std::nullopt;
    quint32 width = 0;
    quint32 height = 0;
    quint16 bits = 1;
    quint32 profileBytes = 0;
    const char *profile = nullptr;
    TIFFGetField(tiff.get(), TIFFTAG_IMAGEWIDTH, &width);
    TIFFGetField(tiff.get(), TIFFTAG_IMAGELENGTH, &height);
    TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_BITSPERSAMPLE, &bits);
    PictureHeader header;
    header.format = QStringLiteral("TIFF");
    header.size = QSize(int(width), int(height));
    header.bitsPerSample = bits;
    if (TIFFGetField(tiff.get(), TIFFTAG_ICCPROFILE, &profileBytes, &profile))
        header.profile = QByteArray(profile, profileBytes);
    return header;
}

int bitsOf(QImage::Format format)
{
    const QPixelFormat pixels = QImage::toPixelFormat(format);
    return format == QImage::Format_Invalid ? 0
                                            : std::max<int>(pixels.redSize(), pixels.blackSize());
}

std::optional<PictureHeader> modernHeader([[maybe_unused]] QIODevice &file)
{
    std::optional<PictureHeader> header;
#ifdef VESK_WITH_AVIF
    header = avif_decoder::headerOf(file);
#endif
#ifdef VESK_WITH_JXL
    if (!header)
        header = jxl_decoder::headerOf(file);
#endif
#ifdef VESK_WITH_OPENEXR
    if (!header)
        header = exr_decoder::headerOf(file);
#endif
    return header ? header : hdr_decoder::headerOf(file);
}

/// What Qt's readers tell. That of WebP files does not tell their depth, which is always 8.
std::optional<PictureHeader> otherHeader(QIODevice &file, FileParts &parts)
{
    PictureHeader header;
    const bool isWebP = parts.kind() == FileParts::Kind::WebP;
    while (isWebP && parts.next()) {
        if (parts.name() == "ICCP")
            header.profile = parts.bytes();
    }
    file.seek(0);
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead())
        return std::nullopt;
    header.format =
        isWebP ? QStringLiteral("WebP") : QString::fromLatin1(reader.format()).toUpper();
    header.size = reader.size();
    header.bitsPerSample = isWebP ? 8 : bitsOf(reader.imageFormat());
    return header;
}

QString nameOf(const QByteArray &profile)
{
    const std::unique_ptr<void, decltype(&cmsCloseProfile)> opened(
        cmsOpenProfileFromMem(profile.constData(), cmsUInt32Number(profile.size())),
        &cmsCloseProfile);
    if (!opened)
        return QStringLiteral("damaged profile");
    std::array<char, 256> name = {};
    cmsGetProfileInfoASCII(opened.get(), cmsInfoDescription, "en", "US", name.data(), name.size());
    return QString::fromLatin1(name.data()).simplified();
}

std::optional<PictureHeader> readHeader(QIODevice &file)
{
    FileParts parts(file);
    if (parts.kind() == FileParts::Kind::Jpeg)
        return jpegHeader(parts);
    if (parts.kind() == FileParts::Kind::Png)
        return pngHeader(parts);
    file.seek(0);
    const QByteArray start = file.peek(2);
    if (start == "II" || start == "MM") {
        if (std::optional<PictureHeader> header = tiffHeader(file))
            return header;
    }
    if (std::optional<PictureHeader> header = modernHeader(file))
        return header;
    return otherHeader(file, parts);
}

} // namespace

std::optional<PictureHeader> picture::headerOf(QIODevice &file)
{
    std::optional<PictureHeader> header = readHeader(file);
    if (header && header->colours.isEmpty() && !header->profile.isEmpty())
        header->colours = nameOf(header->profile);
    return header;
}
