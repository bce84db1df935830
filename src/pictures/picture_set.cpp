#include "picture_set.h"

#include "ColourTransform.h"
#include "colour_profile.h"

#include <QColorSpace>

picture_set::OneSpace picture_set::bringToFirst(QList<QImage> &pictures)
{
    OneSpace space;
    if (pictures.isEmpty())
        return space;
    space.profile = pictures.first().colorSpace().iccProfile();
    for (int i = 1; i < pictures.size() && !space.isMemoryShort; ++i) {
        const QByteArray own = pictures[i].colorSpace().iccProfile();
        const auto outcome = ColourTransform::bring(pictures[i], space.profile);
        if (outcome == ColourTransform::Outcome::Converted)
            space.conversions.push_back({i, colour_profile::nameOf(own)});
        space.isMemoryShort = outcome == ColourTransform::Outcome::Failed;
    }
    return space;
}
