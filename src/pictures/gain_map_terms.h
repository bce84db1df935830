#pragma once

#include "GainMap.h"
#include "XmpPacket.h"

#include <QByteArray>

#include <optional>

/// The two forms in which JPEG files tell the terms of a gain map: the APP2 segment of ISO 21496-1,
/// and the older XMP properties of the namespace "hdrgm" with a directory of the file's pictures.
/// Any thread; what is read may be damaged or hostile.
namespace gain_map_terms {

/// The contents of the base picture's APP2 segment, signature included: the version alone.
QByteArray isoVersion();

/// Those of the gain map's: version and terms.
QByteArray iso(const GainMapTerms &terms);

bool isIso(const QByteArray &segment);

/// Of a segment for which isIso() holds; nothing when it has no terms, or senseless ones.
std::optional<GainMapTerms> fromIso(const QByteArray &segment);

/// The base's properties; replaces what is there of their kind. mapBytes: of the gain map's file.
void putDirectory(qsizetype mapBytes, XmpPacket &packet);

/// The gain map's properties.
void putTerms(const GainMapTerms &terms, XmpPacket &packet);

/// What the base's directory says of the pictures behind it: their lengths in order, and which of
/// them, if one, is the gain map.
struct Directory
{
    QList<qint64> lengths;
    int gainMap = -1;
};
Directory directoryIn(const XmpPacket &packet);

/// Whether the packet says that there is a gain map, here or in another picture of the file.
bool tellsOfGainMap(const XmpPacket &packet);

/// Nothing when there are none, or senseless ones.
std::optional<GainMapTerms> fromXmp(const XmpPacket &packet);

} // namespace gain_map_terms
