#include "group_command.h"

#include "SceneComparison.h"
#include "bracket_finder.h"
#include "console.h"
#include "folder_shots.h"
#include "library_messages.h"
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
    bool json = false;
    QString problem; ///< empty when the options are all right
};

/// The options of "veskhdr group".
class GroupParser
{
public:
    GroupOptions parse(const QStringList &words);

private:
    void readBracket(GroupOptions &options) const;
    void readFolder(GroupOptions &options) const;

    const QCommandLineOption gap{QStringLiteral("gap"), {}, QStringLiteral("seconds")};
    const QCommandLineOption fewest{QStringLiteral("min"), {}, QStringLiteral("number")};
    const QCommandLineOption most{QStringLiteral("max"), {}, QStringLiteral("number")};
    const QCommandLineOption prefer{QStringLiteral("prefer"), {}, QStringLiteral("kind")};
    const QCommandLineOption raw{QStringLiteral("raw")};
    const QCommandLineOption recursive{QStringLiteral("recursive")};
    const QCommandLineOption json{QStringLiteral("json")};
    QCommandLineParser parser;
};

void GroupParser::readBracket(GroupOptions &options) const
{
    const QString seconds = parser.value(gap);
    if (parser.isSet(gap) && seconds != QLatin1String("auto")) {
        bool isNumber = true;
        const double number = seconds.toDouble(&isNumber);
        options.bracket.largestGapSeconds = number;
        if (!isNumber || !(number >= 0))
            options.problem = QStringLiteral("the gap must be a number of seconds, or auto");
    }
    if (parser.isSet(fewest))
        options.bracket.fewestPictures = parser.value(fewest).toInt();
    if (parser.isSet(most))
        options.bracket.mostPictures = parser.value(most).toInt();
    if (options.bracket.fewestPictures < 2)
        options.problem = QStringLiteral("a bracket has two pictures or more");
    else if (options.bracket.mostPictures < options.bracket.fewestPictures)
        options.problem = QStringLiteral("the most pictures of a bracket cannot be fewer than the "
                                         "fewest");
}

void GroupParser::readFolder(GroupOptions &options) const
{
    const QString kind = parser.value(prefer);
    if (parser.isSet(prefer) && kind != QLatin1String("raw") && kind != QLatin1String("jpeg"))
        options.problem = QStringLiteral("--prefer takes raw or jpeg");
    else if (parser.isSet(raw) && kind == QLatin1String("jpeg"))
        options.problem = QStringLiteral("--raw and --prefer jpeg exclude each other");
    options.folder.preferRaw = parser.isSet(raw) || kind == QLatin1String("raw");
}

GroupOptions GroupParser::parse(const QStringList &words)
{
    parser.addOptions({gap, fewest, most, prefer, raw, recursive, json});
    GroupOptions options;
    if (!parser.parse(QStringList(QStringLiteral("veskhdr")) + words)) {
        options.problem = parser.errorText();
        return options;
    }
    options.folders = parser.positionalArguments();
    options.recursive = parser.isSet(recursive);
    options.json = parser.isSet(json);
    readBracket(options);
    readFolder(options);
    if (options.folders.isEmpty())
        options.problem = QStringLiteral("no folder given, see 'veskhdr group --help'");
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

/// The value of each shot, or null.
template <typename Value>
QJsonArray ofEach(const Bracket &bracket, const Value &value)
{
    QJsonArray values;
    for (const Shot &shot : bracket.shots)
        values.append(value(shot));
    return values;
}

QJsonValue orNull(double number)
{
    return number > 0 ? QJsonValue(number) : QJsonValue();
}

QJsonObject toJson(const Bracket &bracket)
{
    const Shot &first = bracket.shots.front();
    return {
        {QStringLiteral("pictures"), ofEach(bracket, [](const Shot &shot) { return shot.path; })},
        {QStringLiteral("exposureBias"),
         ofEach(bracket, [](const Shot &shot) { return inHundredths(shot.exposureBias); })},
        {QStringLiteral("exposureTime"),
         ofEach(bracket, [](const Shot &shot) { return orNull(shot.exposureSeconds); })},
        {QStringLiteral("fNumber"),
         ofEach(bracket, [](const Shot &shot) { return orNull(shot.fNumber); })},
        {QStringLiteral("iso"), ofEach(bracket, [](const Shot &shot) { return orNull(shot.iso); })},
        {QStringLiteral("takenAt"),
         first.takenAt.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss.zzz"))},
        {QStringLiteral("width"), first.size.width()},
        {QStringLiteral("height"), first.size.height()},
        {QStringLiteral("orientation"), first.orientation},
        {QStringLiteral("model"), first.model},
        {QStringLiteral("lens"), first.lens.isEmpty() ? QJsonValue() : QJsonValue(first.lens)},
        {QStringLiteral("warnings"), QJsonArray::fromStringList(bracket.warnings)},
    };
}

QString toText(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

/// What was found in all folders, for --json.
struct GroupReport
{
    QJsonArray brackets;
    QJsonArray leftOver;
};

void leaveOver(const QString &path, const QString &reason, bool json, GroupReport &report)
{
    if (json)
        report.leftOver.append(
            QJsonObject{{QStringLiteral("picture"), path}, {QStringLiteral("reason"), reason}});
    else
        console::complain(path, QStringLiteral("left out, ") + reason);
}

void tell(const Bracket &bracket, bool json, GroupReport &report)
{
    if (json)
        return report.brackets.append(toJson(bracket));
    for (const QString &warning : bracket.warnings)
        console::complain(bracket.shots.front().path, QStringLiteral("warning: the bracket that "
                                                                     "begins here: ") +
                                                          warning);
    console::print(toText(toJson(bracket)));
}

void group(const QString &folder, const GroupOptions &options, GroupReport &report)
{
    const std::vector<Shot> shots = brackets::readFolder(
        folder, options.folder, [&](const QString &path, const QString &reason) {
            leaveOver(path, reason, options.json, report);
        });
    const LibraryMute mute;
    SceneComparison scenes;
    const Grouping grouping =
        brackets::find(shots, options.bracket, [&scenes](const Shot &one, const Shot &other) {
            return scenes.compare(one, other);
        });
    for (const LeftOver &left : grouping.leftOver)
        leaveOver(left.shot.path, left.reason, options.json, report);
    for (const Bracket &bracket : grouping.brackets)
        tell(bracket, options.json, report);
}

} // namespace

ExitCode command_line::runGroup(const QStringList &words)
{
    const GroupOptions options = GroupParser().parse(words);
    if (!options.problem.isEmpty()) {
        console::complain({}, QStringLiteral("group: ") + options.problem);
        return ExitCode::Usage;
    }
    GroupReport report;
    ExitCode code = ExitCode::Ok;
    for (const QString &root : options.folders) {
        // Named as it was given; those below are named by their whole path.
        const QStringList folders =
            isReadable(root) ? foldersFrom(root, options.recursive) : QStringList();
        if (folders.isEmpty())
            code = ExitCode::NoInput;
        for (const QString &folder : folders) {
            if (isReadable(folder))
                group(folder, options, report);
            else
                code = ExitCode::NoInput;
        }
    }
    if (options.json)
        console::print(toText({{QStringLiteral("brackets"), report.brackets},
                               {QStringLiteral("leftOver"), report.leftOver}}));
    return code;
}

QString command_line::groupHelp()
{
    return QStringLiteral(
        R"(Usage: veskhdr group [options] FOLDER...

Finds the brackets among the pictures of a folder by what the camera noted in them,
and prints each as a JSON object on a line of its own, by time. Nothing is changed.

A bracket is a run of shots of one camera, lens, size and orientation, soon after
each other, whose exposures differ: in the exposure bias or, where that stands
still, in time, aperture and sensitivity. They may be as many as you like; brackets
that follow each other are told apart. Where the metadata leave a doubt, as after a
long pause, the pictures are compared: they must show the same scene. Every picture
that belongs to no bracket is named on standard error with the reason. Of a raw file
and a developed file with the same base name one counts; results of veskhdr do not.

Options:
  --gap SECONDS     The longest pause within a bracket, not counting exposure;
                    "auto", which is the default, judges by the shots
  --min N           The fewest exposures of a bracket, 2 or more (3)
  --max N           The most pictures of a bracket
  --prefer KIND     "raw" or "jpeg", which is the default: of a picture that is there
                    raw and developed
  --raw             Short for --prefer raw
  --recursive       Look into the folders below as well, each for itself
  --json            Print one JSON object: brackets, and leftOver with picture and
                    reason of all others
  --help            Show this text

Members of a bracket: pictures (paths, in the order in which they were taken),
exposureBias (stops), exposureTime (seconds), fNumber and iso of each, or null;
takenAt (of the first, by the camera's clock), width and height (upright),
orientation (EXIF's number), model, lens, and warnings (why it may be none).

Exit codes:
   0  all folders are searched, even if there is no bracket
  64  wrong options or arguments
  66  a folder is missing, is not a folder, or must not be read; the others are
      searched
  74  standard output could not be written to its end)");
}
