#pragma once

#include <QImage>

#include <array>

/// How the numbers of a gain map are meant: those of ISO 21496-1. A value.
struct GainMapTerms
{
    /// A map's number v, 0..1, stands for the gain g = least + (most - least) * v^(1 / gamma), in
    /// stops: alternate + alternateOffset = (base + baseOffset) * 2^g, both in linear light.
    struct Channel
    {
        double least = 0.0;
        double most = 1.0;
        double gamma = 1.0;
        double baseOffset = 1.0 / 64.0;
        double alternateOffset = 1.0 / 64.0;
    };

    std::array<Channel, 3> channels; ///< red, green, blue; all the same for a grey map
    /// How much brighter than white a screen can show, in stops, where the base is shown as it is,
    /// and from where on the gain counts in full.
    double baseHeadroom = 0.0;
    double alternateHeadroom = 1.0;
};

/// What makes a picture for usual screens one for bright screens. A value.
struct GainMap
{
    QImage picture; ///< Format_RGB32, mostly smaller than the base; null: there is none
    GainMapTerms terms;
};
