#include "bright_merge.h"

#include "bright_picture.h"
#include "light_primaries.h"

bool command_line::makeBright(display::BrightSource source, PictureFormat format, QImage &picture,
                              GainMap &map)
{
    if (!light_primaries::bring(source.light, source.base.colorSpace()))
        return false;
    if (format != PictureFormat::Jpeg) {
        picture = display::brightPicture(source);
        return !picture.isNull();
    }
    // What the encoder would round to by itself.
    source.base = source.base.convertToFormat(QImage::Format_RGB32);
    if (source.base.isNull())
        return false;
    picture = source.base;
    map = display::makeGainMap(source);
    return !map.picture.isNull();
}
