#pragma once

#include <Metadata.h>
#include <ResultMark.h>
#include <develop_options.h>

#include <QImage>
#include <QString>

#include <optional>

class QWidget;

namespace light_file {

/// The light of a scene, and what its files say beside it.
struct Light
{
    QImage picture;                 ///< Format_RGBX32FPx4, linear
    QString name;                   ///< without folder and suffix
    QString path;                   ///< the file that it was read from; may be empty
    QString metadataSource;         ///< the file whose metadata belong to it; may be empty
    std::optional<ResultMark> mark; ///< of a merged one
};

/// Asks for a file and writes the light to it, while a busy indicator keeps the user waiting:
/// OpenEXR, Radiance or TIFF; or the picture that it is developed to, with what bright screens show
/// beyond that: JPEG with a gain map, AVIF or JPEG XL; of these what this build writes. Problems
/// are shown. The path when it is written; empty when not. GUI thread.
QString saveAs(QWidget *window, const Light &light, const develop::Options &how,
               const QString &folder);

/// Whether a file of that name has the light itself in it.
bool holdsLight(const QString &path);

} // namespace light_file
