#include "BracketSearch.h"

#include "console.h"
#include "library_messages.h"
#include "natural_order.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>

namespace {

bool isReadable(const QString &folder)
{
    const QFileInfo info(folder);
    if (!info.exists())
        console::complain(folder, QStringLiteral("no such folder"));
    else if (!info.isDir())
        console::complain(folder, QStringLiteral("is not a folder"));
    else if (!info.isReadable() || !info.isExecutable())
        console::complain(folder, QStringLiteral("permission denied"));
    else
        return true;
    return false;
}

/// The folder, and with it those below when asked for, in natural order.
QStringList foldersFrom(const QString &folder, bool recursive)
{
    const QString absolute = QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
    QStringList folders{absolute};
    if (!recursive)
        return folders;
    QDirIterator below(absolute, QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks,
                       QDirIterator::Subdirectories);
    while (below.hasNext())
        folders += below.next();
    std::sort(folders.begin(), folders.end(), brackets::isBeforeNaturally);
    return folders;
}

void searchFolder(const QString &folder, const SearchOptions &options,
                  const std::function<void(const Bracket &)> &onFound,
                  const BracketSearch::LeftOutObserver &leftOut)
{
    Grouping grouping;
    const std::vector<Shot> shots = brackets::readFolder(folder, options.folder, leftOut);
    {
        const LibraryMute mute;
        SceneComparison scenes;
        grouping =
            brackets::find(shots, options.bracket, [&scenes](const Shot &one, const Shot &other) {
                return scenes.compare(one, other);
            });
    }
    for (const LeftOver &left : grouping.leftOver)
        leftOut(left.shot.path, left.reason);
    for (const Bracket &bracket : grouping.brackets)
        onFound(bracket);
}

} // namespace

void BracketSearch::addTo(QCommandLineParser &parser) const
{
    parser.addOptions({gap, fewest, most, prefer, raw, recursive});
}

QString BracketSearch::readBracket(const QCommandLineParser &parser, BracketRules &rules) const
{
    const QString seconds = parser.value(gap);
    if (parser.isSet(gap) && seconds != QLatin1String("auto")) {
        bool isNumber = true;
        rules.largestGapSeconds = seconds.toDouble(&isNumber);
        if (!isNumber || !(*rules.largestGapSeconds >= 0))
            return QStringLiteral("the gap must be a number of seconds, or auto");
    }
    if (parser.isSet(fewest))
        rules.fewestPictures = parser.value(fewest).toInt();
    if (parser.isSet(most))
        rules.mostPictures = parser.value(most).toInt();
    if (rules.fewestPictures < 2)
        return QStringLiteral("a bracket has two pictures or more");
    if (rules.mostPictures < rules.fewestPictures)
        return QStringLiteral("the most pictures of a bracket cannot be fewer than the fewest");
    return {};
}

QString BracketSearch::readFolder(const QCommandLineParser &parser, FolderRules &rules) const
{
    const QString kind = parser.value(prefer);
    if (parser.isSet(prefer) && kind != QLatin1String("raw") && kind != QLatin1String("jpeg"))
        return QStringLiteral("--prefer takes raw or jpeg");
    if (parser.isSet(raw) && kind == QLatin1String("jpeg"))
        return QStringLiteral("--raw and --prefer jpeg exclude each other");
    rules.preferRaw = parser.isSet(raw) || kind == QLatin1String("raw");
    return {};
}

QString BracketSearch::read(const QCommandLineParser &parser, SearchOptions &options) const
{
    options.recursive = parser.isSet(recursive);
    const QString problem = readBracket(parser, options.bracket);
    return problem.isEmpty() ? readFolder(parser, options.folder) : problem;
}

QStringList BracketSearch::foldersOf(const SearchOptions &options)
{
    QStringList folders;
    for (const QString &root : options.folders)
        folders += foldersFrom(root, options.recursive);
    return folders;
}

ExitCode BracketSearch::run(const SearchOptions &options,
                            const std::function<void(const Bracket &)> &onFound,
                            const LeftOutObserver &leftOut)
{
    ExitCode code = ExitCode::Ok;
    for (const QString &root : options.folders) {
        // Named as it was given; those below are named by their whole path.
        const QStringList folders =
            isReadable(root) ? foldersFrom(root, options.recursive) : QStringList();
        if (folders.isEmpty())
            code = ExitCode::NoInput;
        for (const QString &folder : folders) {
            if (isReadable(folder))
                searchFolder(folder, options, onFound, leftOut);
            else
                code = ExitCode::NoInput;
        }
    }
    return code;
}
