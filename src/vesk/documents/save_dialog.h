#pragma once

#include <PictureFormat.h>

#include <QImage>
#include <QString>

#include <optional>

class QWidget;

/// Where and how a document is to be saved.
struct SaveTarget
{
    QString path;
    PictureFormat format;
    int quality;             ///< 1..100, JPEG only
    bool mayReplace = false; ///< the user has agreed to replace a file of that name
    int bitsPerSample = 0;   ///< 8 or 16; 0: as many as the picture has; JPEG always has 8
};

namespace document {

/// Asks for a file for picture (starting with suggestedPath) and, for JPEG, for the quality, which
/// is remembered. The suffix decides on the format; where there is none, the chosen kind gives it.
/// Of a picture with 16 bits per channel, PNG and TIFF are offered with 16 and with 8.
/// Nothing when the user cancels. GUI thread.
std::optional<SaveTarget> askSaveTarget(QWidget *window, const QString &suggestedPath,
                                        const QImage &picture);

} // namespace document
