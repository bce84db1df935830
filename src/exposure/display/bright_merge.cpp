#include "bright_merge.h"

#include "bright_picture.h"
#include "light_primaries.h"

bool display::makeBright(BrightSource source, PictureFormat format, QImage &picture, GainMap &map)
{
    if (!light_primaries::bring(source.light, source.base.colorSpace()))
        return false;
    BrightSource flat = source;
    // What the JPEG encoder would round to by itself.
    flat.base = source.base.convertToFormat(QImage::Format_RGB32);
    if (flat.base.isNull())
        return false;
    map = makeGainMap(flat);
    if (map.picture.isNull())
        return false;
    source.peak = map.terms.alternateHeadroom;
    picture = picture::isForBrightScreens(format) ? brightPicture(source) : flat.base;
    return !picture.isNull();
}
