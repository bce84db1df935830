#pragma once

#include <QByteArray>

/// What can be told of a camera's private note in an EXIF block. Most notes hold a directory whose
/// values are found by their place in the block, so such a note must stay where it is. Kinds of
/// notes and where they count from: the documentation of ExifTool, "Maker notes". Any thread.
namespace maker_note {

/// True when the note counts from its own first byte, so that it may stand anywhere.
bool isSelfContained(const QByteArray &note);

/// False when the note counts from the block's first byte and values of its lie outside it, so that
/// it alone is not all. place: of the note in the block. True for notes of unknown kind.
bool isWhole(const QByteArray &note, qint64 place, bool isBigEndian);

} // namespace maker_note
