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
    return std::nullopt;
}
