#include "VeskScreenColours.h"

VeskScreenColours &VeskScreenColours::getInstance()
{
    static auto *const instance = new VeskScreenColours;
    return *instance;
}

void VeskScreenColours::setMakers(Maker toScreen, Maker toCommon)
{
    makeToScreen = std::move(toScreen);
    makeToCommon = std::move(toCommon);
    Q_EMIT changed();
}

VeskScreenColours::Conversion VeskScreenColours::toScreen(const QColorSpace &from) const
{
    return makeToScreen ? makeToScreen(from) : Conversion();
}

VeskScreenColours::Conversion VeskScreenColours::toCommon(const QColorSpace &from) const
{
    return makeToCommon ? makeToCommon(from) : Conversion();
}
