#pragma once

#include "GainMap.h"

#include <QIODevice>
#include <QSize>
#include <QString>

#include <optional>

namespace gain_map {

/// What a file tells of its gain map, whose pixels are not decoded.
struct Found
{
    QSize size;
    GainMapTerms terms;
    bool isIso = false; ///< as ISO 21496-1 has it; otherwise in the older XMP form
    QString problem;    ///< why it cannot be used, in English, for reports; empty when it can
};

/// Of a JPEG file, by whatever program it was written; nothing when the file has none. file: open
/// and seekable. What it tells may be damaged or hostile. Any thread, one per device.
std::optional<Found> read(QIODevice &file);

} // namespace gain_map
