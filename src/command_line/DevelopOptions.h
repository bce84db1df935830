#pragma once

#include "develop_options.h"
#include "picture_decoder.h"
#include "picture_writer.h"

#include <QString>
#include <QStringList>

/// What "veskhdr develop" is asked to do.
struct DevelopOptions
{
    QString light; ///< the file of it
    QString output;
    PictureFormat format = PictureFormat::Png;
    develop::Options how;
    int depth = 0; ///< 8 or 16; 0: as many as the format holds
    int quality = kDefaultQuality;
    qint64 pixelLimit = kDefaultPixelLimit;
    bool mayReplace = false;
};

struct ParsedDevelopOptions
{
    DevelopOptions options;
    QString file;    ///< that the problem is about; may be empty
    QString problem; ///< in words; empty when the options can be used
};

namespace command_line {

/// words: behind the command's name.
ParsedDevelopOptions parseDevelopOptions(const QStringList &words);

} // namespace command_line
