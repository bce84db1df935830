#pragma once

#include "ExitCode.h"
#include "Metadata.h"
#include "ResultMark.h"
#include "Shot.h"
#include "gain_map.h"
#include "picture_header.h"

#include <QString>

/// What "veskhdr inspect" tells of one file.
struct FileReport
{
    QString path;
    ExitCode error = ExitCode::Ok;
    QString problem; ///< empty on success
    PictureHeader header;
    Shot shot;
    Metadata metadata;
    QString rating; ///< as it stands in the XMP data; empty when there is none
    std::optional<ResultMark> mark;
    std::optional<gain_map::Found> gainMap;
};

namespace command_line {

/// Reads the file's header and metadata.
FileReport inspect(const QString &path);

/// One JSON object without line breaks.
QString toJsonLine(const FileReport &report);

/// What the file tells, for people: its name, and a line for each thing, moved in.
QString toLines(const FileReport &report);

} // namespace command_line
