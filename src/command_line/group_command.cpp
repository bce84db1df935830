#include "group_command.h"

#include "bracket_finder.h"
#include "console.h"
#include "folder_shots.h"
#include "natural_order.h"

#include <QCommandLineParser>
#include <QDirIterator>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

struct GroupOptions
{
    QStringList folders;
    FolderRules folder;
    BracketRules bracket;
    bool recursive = false;
    QString problem; ///< empty when the options are all right
};

GroupOptions parse(const QStringList &words)
{
    const QCommandLineOption gap(QStringLiteral("gap"), {}, QStringLiteral("seconds"));
    const QCommandLineOption fewest(QStringLiteral("min"), {}, QStringLiteral("number"));
    const QCommandLineOption raw(QStringLiteral("raw"));
    const QCommandLineOption recursive(QStringLiteral("recursive"));
    QCommandLineParser parser;
    parser.addOptions({gap, fewest, raw, recursive});
    GroupOptions options;
    bool isNumber = true;
    if (!parser.parse(QStringList(QStringLiteral("veskhdr")) + words))
        options.problem = parser.errorText();
    options.folders = parser.positionalArguments();
    if (options.problem.isEmpty() && options.folders.isEmpty())
        options.problem = QStringLiteral("no folder given, see 'veskhdr group --help'");
    if (parser.isSet(gap))
        options.bracket.largestGapSeconds = parser.value(gap).toDouble(&isNumber);
    if (!isNumber || !(options.bracket.largestGapSeconds >= 0))
        options.problem = QStringLiteral("the gap must be a number of seconds");
    if (parser.isSet(fewest))
        options.bracket.fewestPictures = parser.value(fewest).toInt();
    if (options.bracket.fewestPictures < 2)
        options.problem = QStringLiteral("a bracket has two pictures or more");
    options.folder.preferRaw = parser.isSet(raw);
    options.recursive = parser.isSet(recursive);
    return options;
}

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

/// Stops, without the noise behind the decimal point that thirds leave.
QJsonValue inHundredths(const std::optional<double> &stops)
{
    return stops ? QJsonValue(qRound(*stops * 100) / 100.0) : QJsonValue();
}

QString toJsonLine(const Bracket &bracket)
{
    QJsonArray pictures;
    QJsonArray biases;
    QJsonArray seconds;
    for (const Shot &shot : bracket) {
        pictures.append(shot.path);
        biases.append(inHundredths(shot.exposureBias));
        seconds.append(shot.exposureSeconds > 0 ? QJsonValue(shot.exposureSeconds) : QJsonValue());
    }
    const Shot &first = bracket.front();
    const QJsonObject object{
        {QStringLiteral("pictures"), pictures},
        {QStringLiteral("exposureBias"), biases},
        {QStringLiteral("exposureTime"), seconds},
        {QStringLiteral("takenAt"),
         first.takenAt.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss.zzz"))},
        {QStringLiteral("width"), first.size.width()},
        {QStringLiteral("height"), first.size.height()},
        {QStringLiteral("orientation"), first.orientation},
        {QStringLiteral("model"), first.model},
    };
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

void group(const QString &folder, const GroupOptions &options)
{
    const std::vector<Shot> shots = brackets::readFolder(
        folder, options.folder, [](const QString &path, const QString &reason) {
            console::complain(path, QStringLiteral("left out, ") + reason);
        });
    for (const Bracket &bracket : brackets::find(shots, options.bracket))
        console::print(toJsonLine(bracket));
}

} // namespace

ExitCode command_line::runGroup(const QStringList &words)
{
    const GroupOptions options = parse(words);
    if (!options.problem.isEmpty()) {
        console::complain({}, QStringLiteral("group: ") + options.problem);
        return ExitCode::Usage;
    }
    ExitCode code = ExitCode::Ok;
    for (const QString &root : options.folders) {
        // Named as it was given; those below are named by their whole path.
        const QStringList folders =
            isReadable(root) ? foldersFrom(root, options.recursive) : QStringList();
        if (folders.isEmpty())
            code = ExitCode::NoInput;
        for (const QString &folder : folders) {
            if (isReadable(folder))
                group(folder, options);
            else
                code = ExitCode::NoInput;
        }
    }
    return code;
}

QString command_line::groupHelp()
{
    return QStringLiteral(
        R"(Usage: veskhdr group [options] FOLDER...

Finds the brackets among the pictures of a folder by what the camera noted in them,
and prints each as a JSON object on a line of its own, by time. Nothing is changed.

A bracket is a run of shots of one camera, size and orientation, each soon after the
one before, whose exposures differ: in the exposure bias or, where that stands
still, in even steps of time, aperture and sensitivity. Brackets that follow each
other are told apart; single shots are passed over. Pictures without EXIF data,
copies and other odd ones are named on standard error and left out. Of a raw file
and a developed file with the same base name, the developed one is listed.

Options:
  --gap SECONDS     The longest pause within a bracket (5), not counting exposure
  --min N           The fewest pictures of a bracket, 2 or more (3)
  --raw             List the raw file where there are both
  --recursive       Look into the folders below as well, each for itself
  --help            Show this text

Members of an object: pictures (paths, in the order in which they were taken),
exposureBias (stops, or null) and exposureTime (seconds, or null) of each, takenAt
(of the first, by the camera's clock), width and height (upright), orientation
(EXIF's number), model.

Exit codes:
   0  all folders are searched, even if there is no bracket
  64  wrong options or arguments
  66  a folder is missing, is not a folder, or must not be read; the others are
      searched
  74  standard output could not be written to its end)");
}
