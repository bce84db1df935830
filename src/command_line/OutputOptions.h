#pragma once

#include "MergeOptions.h"

#include <QCommandLineParser>

/// The options of "veskhdr merge" about formats, depth and colours.
class OutputOptions
{
public:
    void addTo(QCommandLineParser &parser) const;

    /// Sets what was given, the format too. options: with its output. Returns the problem in words,
    /// or nothing.
    QString read(const QCommandLineParser &parser, MergeOptions &options) const;

    /// What does not go together once all options are read; the problem in words, or nothing.
    QString check(const QCommandLineParser &parser, const MergeOptions &options) const;

private:
    static QString checkLight(const MergeOptions &options);
    QString checkBright(const QCommandLineParser &parser, const MergeOptions &options) const;
    QString readBright(const QCommandLineParser &parser, MergeOptions &options) const;
    QString readFormat(const QCommandLineParser &parser, MergeOptions &options) const;
    QString readSpaces(const QCommandLineParser &parser, MergeOptions &options) const;
    QString readNumbers(const QCommandLineParser &parser, MergeOptions &options) const;

    const QCommandLineOption format{QStringLiteral("format"), {}, QStringLiteral("name")};
    const QCommandLineOption depth{QStringLiteral("depth"), {}, QStringLiteral("bits")};
    const QCommandLineOption rawSpace{QStringLiteral("raw-space"), {}, QStringLiteral("name")};
    const QCommandLineOption outputSpace{
        QStringLiteral("output-space"), {}, QStringLiteral("name")};
    const QCommandLineOption compression{
        QStringLiteral("tiff-compression"), {}, QStringLiteral("how")};
    const QCommandLineOption hdr{QStringLiteral("hdr")};
    const QCommandLineOption peak{QStringLiteral("peak"), {}, QStringLiteral("stops")};
    const QCommandLineOption effort{QStringLiteral("effort"), {}, QStringLiteral("number")};
};
