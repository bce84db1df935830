#pragma once

#include "Stroke.h"
#include "colour_profile.h"
#include "gain_map_maker.h"
#include "picture_decoder.h"
#include "picture_writer.h"
#include "set_merge.h"

#include <QString>
#include <QStringList>

#include <optional>

using MergeMethod = exposure::Method;

/// The word that --method takes for it.
QString wordOf(MergeMethod method);

/// A part of the picture that comes from one shot.
struct TakeFile
{
    int shot = 0; ///< its index
    QString mask; ///< file of a picture that is light there
};

/// What the words after "veskhdr merge" ask for.
struct MergeOptions
{
    QStringList pictures; ///< in merge order, each file once
    QString output;
    PictureFormat format = PictureFormat::Png;
    bool hasFormat = false; ///< it was named
    int depth = 0;          ///< bits per channel, 8 or 16; 0: of the first picture
    colour_profile::Space rawSpace = colour_profile::Space::Srgb;
    std::optional<colour_profile::Space> outputSpace; ///< nothing: that of the pictures
    TiffCompression tiffCompression = TiffCompression::Lzw;
    int effort = 1;                      ///< to make files small, 1 to 9
    bool isBright = false;               ///< for screens that show more than white: --hdr
    double peak = display::kDefaultPeak; ///< stops above white, of a bright picture
    int quality = kDefaultQuality;
    bool isQualityUnused = false;           ///< given, but the format has none
    qint64 pixelLimit = kDefaultPixelLimit; ///< of each picture to merge
    MergeMethod method = MergeMethod::Fusion;
    exposure::Options fusion; ///< its alignment counts for both methods
    QString ghostMask;        ///< file for what moved; empty: none
    QList<TakeFile> takes;    ///< later ones count where they meet
    brush::Strokes strokes;   ///< count more than takes
    bool keepOrder = false;
    bool crop = false;
    bool mayReplace = false;
    QString device;            ///< name of the OpenCL device to merge on; empty: the processor
    QString metadataSource;    ///< picture whose metadata are kept; empty: the reference
    bool keepsMetadata = true; ///< false: none at all
    QString description;       ///< the options given, for the mark of the result
    bool json = false;
    bool verbose = false;

    bool isToStandardOutput() const { return output == QLatin1String("-"); }
};

/// Options, or what is wrong with the words: file is the one concerned, or empty.
struct ParsedMergeOptions
{
    MergeOptions options;
    QString file;
    QString problem; ///< empty when the options are all right
};

namespace command_line {

ParsedMergeOptions parseMergeOptions(const QStringList &words);

} // namespace command_line
