#pragma once

#include <QImage>
#include <QMetaType>
#include <QString>

#include <atomic>
#include <optional>

/// One shot of the set to be merged, as the workspace shows it.
struct MergeShot
{
    QString path;
    QImage small;                ///< for the preview, as the fusion reads pictures; null on failure
    QImage thumbnail;            ///< in the screen's colours
    QSize size;                  ///< of the picture in the file
    std::optional<double> stops; ///< of exposure, on a scale that all shots share
    double seconds = 0;          ///< 0 when not known
    QString problem;             ///< why it cannot be merged, in words; empty when it can
};
Q_DECLARE_METATYPE(MergeShot)

namespace merge_shot {

constexpr int kPreviewSide = 1280;
constexpr int kThumbnailSide = 160;

/// Takes time: any thread but the GUI's. A raw conversion ends soon after cancelled is true.
MergeShot read(const QString &path, const std::atomic<bool> &cancelled);

} // namespace merge_shot
