#pragma once

#include "ShotCard.h"

#include <QString>

/// The shots of a card as small JPEG files that tell the same of themselves, each with a picture of
/// its scene in its exposure.
namespace card_files {

/// False when one cannot be written. Names stay, folders are replaced by this one.
bool write(const ShotCard &card, const QString &folder);

} // namespace card_files
