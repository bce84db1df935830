#pragma once

#include "Stroke.h"

#include <QString>

#include <optional>

/// Strokes in the one word that the command line takes and results are marked with.
namespace brush {

/// The longest text that is kept with a result: files have little room beside the picture.
constexpr qsizetype kMostMarkText = 16384;

/// Strokes joined by "+". Each is "SHOT:RADIUS:X,Y,DX,DY,...", the shot counted from 1, 0 for
/// erasing; the first point, then the way from each to the next; or "SHOT@X,Y" for a thing.
QString toText(const Strokes &strokes);

/// Nothing where the text is no such word, or has numbers beyond all reason. Nobody has checked
/// that the shots are there.
std::optional<Strokes> fromText(const QString &text);

} // namespace brush
