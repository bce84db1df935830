#include "unsupported_kinds.h"

#include <QtEndian>

#include <algorithm>
#include <array>

namespace {

struct Kind
{
    int offset;
    QByteArray bytes;
    const char *name;
};

/// By what they begin with. The second word of ISO media files is their brand.
const std::array kKinds{
    Kind{4, "ftyphei", "HEIC"},
    Kind{4, "ftyphev", "HEIC"},
    Kind{4, "ftypmsf1", "HEIC"},
    Kind{4, "ftypavi", "AVIF"},
    Kind{4, "ftypcrx", "CR3"},
    Kind{4, "jP  \r\n\x87\n", "JPEG 2000"},
    Kind{0, "\xFF\x4F\xFF\x51", "JPEG 2000"},
    Kind{4, "JXL \r\n\x87\n", "JPEG XL"},
    Kind{0, "\xFF\x0A", "JPEG XL"},
    Kind{0, "8BPS", "PSD"},
    Kind{0, "\x76\x2F\x31\x01", "OpenEXR"},
    Kind{0, "#?RADIANCE", "Radiance HDR"},
    Kind{0, "#?RGBE", "Radiance HDR"},
    Kind{0, QByteArray("II\xBC", 3), "JPEG XR"},
    Kind{0, "gimp xcf", "XCF"},
};

/// HEIC files may name AVIF as their second brand, and the other way round: the first one that
/// tells decides.
QString brandOf(const QByteArray &head)
{
    if (!head.mid(4).startsWith("ftypmif1"))
        return {};
    return head.mid(16).contains("avif") ? QStringLiteral("AVIF") : QStringLiteral("HEIC");
}

/// Newer Targa files end with their name. Older ones have no mark at all: their header must make
/// sense and the pixels be there.
bool isTarga(QIODevice &file, const QByteArray &head)
{
    constexpr qint64 kFooterBytes = 18;
    constexpr qint64 kHeaderBytes = 18;
    if (head.size() < kHeaderBytes || !file.seek(file.size() - kFooterBytes))
        return false;
    if (file.read(kFooterBytes).startsWith("TRUEVISION-XFILE."))
        return true;
    const int mapType = head[1];
    const int kind = head[2] & ~8; // 8: compressed
    const bool isCompressed = head[2] & 8;
    const int bits = uchar(head[16]);
    const qint64 width = qFromLittleEndian<quint16>(head.constData() + 12);
    const qint64 height = qFromLittleEndian<quint16>(head.constData() + 14);
    const bool isBitsUsual = bits == 8 || bits == 15 || bits == 16 || bits == 24 || bits == 32;
    const bool isMapped = kind == 1;
    const qint64 pixelBytes = width * height * ((bits + 7) / 8);
    return mapType == (isMapped ? 1 : 0) && kind >= 1 && kind <= 3 && isBitsUsual &&
           pixelBytes > 0 && (isCompressed || file.size() >= kHeaderBytes + pixelBytes);
}

QString kindOf(QIODevice &file)
{
    const QByteArray head = file.read(64);
    const QString brand = brandOf(head);
    if (!brand.isEmpty())
        return brand;
    const auto kind = std::find_if(kKinds.begin(), kKinds.end(), [&head](const Kind &known) {
        return head.mid(known.offset).startsWith(known.bytes);
    });
    if (kind != kKinds.end())
        return QString::fromLatin1(kind->name);
    return isTarga(file, head) ? QStringLiteral("Targa") : QString();
}

} // namespace

QString picture::unsupportedKind(QIODevice &file)
{
    file.seek(0);
    const QString kind = kindOf(file);
    file.seek(0);
    return kind;
}
