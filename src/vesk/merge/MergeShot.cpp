#include "MergeShot.h"

#include <Shot.h>
#include <VeskGlobalSettings.h>
#include <picture_reader.h>
#include <screen_colours.h>
#include <set_merge.h>

MergeShot merge_shot::read(const QString &path, const std::atomic<bool> &cancelled)
{
    ReadOptions options = exposure::readOptionsFor(exposure::Method::Fusion);
    options.pixelLimit = VeskGlobalSettings::pixelLimit();
    options.side = kPreviewSide;
    options.cancelled = &cancelled;
    const DecodedPicture decoded = picture::read(path, options);
    MergeShot shot;
    shot.path = path;
    shot.small = decoded.image;
    shot.problem = decoded.reason;
    if (decoded.image.isNull())
        return shot;
    shot.thumbnail = screen_colours::shown(decoded.image.scaled(
        kThumbnailSide, kThumbnailSide, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    const Shot header = brackets::readShot(path).shot;
    shot.size = header.size.isEmpty() ? decoded.image.size() : header.size;
    shot.stops = header.exposureStops();
    shot.seconds = header.exposureSeconds;
    return shot;
}
