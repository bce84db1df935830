#include "PictureFormat.h"

#include "avif_encoder.h"
#include "exr_encoder.h"
#include "jxl_encoder.h"

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

std::optional<PictureFormat> picture::brightFormatOfSuffix(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg"))
        return PictureFormat::Jpeg;
    if (suffix == QLatin1String("avif"))
        return PictureFormat::Avif;
    if (suffix == QLatin1String("jxl"))
        return PictureFormat::JpegXl;
    return std::nullopt;
}

bool picture::isForBrightScreens(PictureFormat format)
{
    return format == PictureFormat::Avif || format == PictureFormat::JpegXl;
}

bool picture::isWritable(PictureFormat format)
{
    switch (format) {
    case PictureFormat::Avif:
        return avif_file::isAvailable();
    case PictureFormat::JpegXl:
        return jxl_file::isAvailable();
    case PictureFormat::OpenExr:
        return exr_file::isAvailable();
    default:
        return true;
    }
}
