#pragma once

#include "picture_decoder.h"
#include "picture_writer.h"
#include "shot_placement.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What the words after "veskhdr align" ask for.
struct AlignOptions
{
    QStringList pictures; ///< each file once
    QStringList outputs;  ///< the file for each
    QString folder;
    exposure::Alignment alignment = exposure::Alignment::Perspective;
    int reference = exposure::kAutomatic;
    bool crop = false;
    int quality = kDefaultQuality;
    qint64 pixelLimit = kDefaultPixelLimit; ///< of each picture
    bool mayReplace = false;
    bool json = false;
    bool verbose = false;
};

/// Options, or what is wrong with the words: file is the one concerned, or empty.
struct ParsedAlignOptions
{
    AlignOptions options;
    QString file;
    QString problem; ///< empty when the options are all right
};

namespace command_line {

ParsedAlignOptions parseAlignOptions(const QStringList &words);

} // namespace command_line
