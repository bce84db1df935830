#include "PictureFormat.h"

#include <QFileInfo>

std::optional<PictureFormat> picture::formatOfSuffix(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("png"))
        return PictureFormat::Png;
    if (suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg"))
        return PictureFormat::Jpeg;
    if (suffix == QLatin1String("tif") || suffix == QLatin1String("tiff"))
        return PictureFormat::Tiff;
    if (suffix == QLatin1String("exr"))
        return PictureFormat::OpenExr;
    if (suffix == QLatin1String("hdr"))
        return PictureFormat::RadianceHdr;
    return std::nullopt;
}

bool picture::isForLight(PictureFormat format)
{
    return format == PictureFormat::OpenExr || format == PictureFormat::RadianceHdr;
}
