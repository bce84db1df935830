#include "group_command.h"

#include "BracketSearch.h"
#include "console.h"

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

struct GroupOptions
{
    SearchOptions search;
    bool json = false;
    QString problem; ///< empty when the options are all right
};

GroupOptions parse(const QStringList &words)
{
    const QCommandLineOption json(QStringLiteral("json"));
    const BracketSearch search;
    QCommandLineParser parser;
    search.addTo(parser);
    parser.addOption(json);
    GroupOptions options;
    if (!parser.parse(QStringList(QStringLiteral("veskhdr")) + words)) {
        options.problem = parser.errorText();
        return options;
    }
    options.json = parser.isSet(json);
    options.search.folders = parser.positionalArguments();
    options.problem = search.read(parser, options.search);
    if (options.problem.isEmpty() && options.search.folders.isEmpty())
        options.problem = QStringLiteral("no folder given, see 'veskhdr group --help'");
    return options;
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

} // namespace

ExitCode command_line::runGroup(const QStringList &words)
{
    const GroupOptions options = parse(words);
    if (!options.problem.isEmpty()) {
        console::complain({}, QStringLiteral("group: ") + options.problem);
        return ExitCode::Usage;
    }
    GroupReport report;
    const ExitCode code = BracketSearch::run(
        options.search, [&](const Bracket &bracket) { tell(bracket, options.json, report); },
        [&](const QString &path, const QString &reason) {
            leaveOver(path, reason, options.json, report);
        });
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
