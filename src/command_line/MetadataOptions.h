#pragma once

#include "MergeOptions.h"
#include "ResultMark.h"

#include <QCommandLineParser>

/// The options of "veskhdr merge" that say which metadata the result keeps.
class MetadataOptions
{
public:
    void addTo(QCommandLineParser &parser) const;

    /// Sets what was given; the problem in words, or nothing. After all other options.
    QString read(const QCommandLineParser &parser, MergeOptions &options) const;

private:
    QString describe(const QCommandLineParser &parser, const MergeOptions &options) const;

    const QCommandLineOption from{QStringLiteral("metadata-from"), {}, QStringLiteral("file")};
    const QCommandLineOption none{QStringLiteral("no-metadata")};
};

namespace command_line {

/// How the result of this merge is marked: without the names of the pictures when it keeps no
/// metadata.
ResultMark markOf(const MergeOptions &options);

} // namespace command_line
