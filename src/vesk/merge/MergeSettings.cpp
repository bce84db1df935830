#include "MergeSettings.h"

bool MergeSettings::isSameButLook(const MergeSettings &other) const
{
    const exposure::Options &mine = options;
    const exposure::Options &its = other.options;
    return method == other.method && mine.alignment == its.alignment &&
           mine.reference == its.reference && mine.ghosts == its.ghosts &&
           mine.ghostReference == its.ghostReference && mine.crop == its.crop;
}
