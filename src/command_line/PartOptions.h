#pragma once

#include "MergeOptions.h"

#include <QCommandLineParser>

/// The options of "veskhdr merge" that choose shots for parts of the picture.
class PartOptions
{
public:
    void addTo(QCommandLineParser &parser) const;

    /// Sets what was given; the problem in words, or nothing. After the pictures are known.
    QString read(const QCommandLineParser &parser, MergeOptions &options) const;

    const QList<QCommandLineOption> &all() const { return both; }

private:
    const QCommandLineOption take{QStringLiteral("take"), {}, QStringLiteral("shot=mask")};
    const QCommandLineOption paint{QStringLiteral("paint"), {}, QStringLiteral("strokes")};
    const QList<QCommandLineOption> both{take, paint};
};

namespace command_line {

/// The same options as words of the mark of a result: masks without folders; strokes that are too
/// long to go with a picture are left out.
QStringList wordsOfParts(const MergeOptions &options);

} // namespace command_line
