#include "PictureFormat.h"

#include <QFileInfo>

std::optional<PictureFormat> picture::formatOfWord(const QString &word)
{
    if (word == QLatin1String("png"))
        return PictureFormat::Png;
    if (word == QLatin1String("jpg") || word == QLatin1String("jpeg"))
        return PictureFormat::Jpeg;
    if (word == QLatin1String("tif") || word == QLatin1String("tiff"))
        return PictureFormat::Tiff;
    if (word == QLatin1String("exr"))
        return PictureFormat::OpenExr;
    if (word == QLatin1String("hdr"))
        return PictureFormat::RadianceHdr;
    return std::nullopt;
}

std::optional<PictureFormat> picture::formatOfSuffix(const QString &path)
{
    return formatOfWord(QFileInfo(path).suffix().toLower());
}

QStringList picture::ownSuffixes()
{
    QStringList suffixes{QStringLiteral("jpg"), QStringLiteral("jpeg"), QStringLiteral("tif"),
                         QStringLiteral("tiff"), QStringLiteral("hdr")};
#ifdef VESK_WITH_AVIF
    suffixes += QStringLiteral("avif");
#endif
#ifdef VESK_WITH_JXL
    suffixes += QStringLiteral("jxl");
#endif
#ifdef VESK_WITH_OPENEXR
    suffixes += QStringLiteral("exr");
#endif
    return suffixes;
}

bool picture::isForLight(PictureFormat format)
{
    return format == PictureFormat::OpenExr || format == PictureFormat::RadianceHdr;
}
