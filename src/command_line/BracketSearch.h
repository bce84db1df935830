#pragma once

#include "ExitCode.h"
#include "SceneComparison.h"
#include "bracket_finder.h"
#include "folder_shots.h"

#include <QCommandLineParser>
#include <QStringList>

#include <functional>

/// Where to look for brackets, and what counts as one.
struct SearchOptions
{
    QStringList folders;
    FolderRules folder;
    BracketRules bracket;
    bool recursive = false;
};

/// The options of commands that look for brackets.
class BracketSearch
{
public:
    /// Told the path and the reason of each picture that belongs to no bracket.
    using LeftOutObserver = std::function<void(const QString &path, const QString &reason)>;

    void addTo(QCommandLineParser &parser) const;

    /// Sets what was given, but the folders; the problem in words, or nothing.
    QString read(const QCommandLineParser &parser, SearchOptions &options) const;

    /// All that are searched, as they are given or by their whole paths; missing ones, too.
    static QStringList foldersOf(const SearchOptions &options);

    /// Finds the brackets of each folder and gives them to onFound, by time. Folders that cannot be
    /// read are named on standard error; the others are searched.
    static ExitCode run(const SearchOptions &options,
                        const std::function<void(const Bracket &)> &onFound,
                        const LeftOutObserver &leftOut);

private:
    QString readBracket(const QCommandLineParser &parser, BracketRules &rules) const;
    QString readFolder(const QCommandLineParser &parser, FolderRules &rules) const;

    const QCommandLineOption gap{QStringLiteral("gap"), {}, QStringLiteral("seconds")};
    const QCommandLineOption fewest{QStringLiteral("min"), {}, QStringLiteral("number")};
    const QCommandLineOption most{QStringLiteral("max"), {}, QStringLiteral("number")};
    const QCommandLineOption prefer{QStringLiteral("prefer"), {}, QStringLiteral("kind")};
    const QCommandLineOption raw{QStringLiteral("raw")};
    const QCommandLineOption recursive{QStringLiteral("recursive")};
};
