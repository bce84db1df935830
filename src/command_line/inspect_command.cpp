#include "inspect_command.h"

#include "FileReport.h"
#include "console.h"

#include <QCommandLineParser>

ExitCode command_line::runInspect(const QStringList &words)
{
    const QCommandLineOption json(QStringLiteral("json"));
    QCommandLineParser parser;
    parser.addOption(json);
    QString problem;
    if (!parser.parse(QStringList(QStringLiteral("veskhdr")) + words))
        problem = parser.errorText();
    else if (parser.positionalArguments().isEmpty())
        problem = QStringLiteral("no files given, see 'veskhdr inspect --help'");
    if (!problem.isEmpty()) {
        console::complain({}, QStringLiteral("inspect: ") + problem);
        return ExitCode::Usage;
    }
    ExitCode code = ExitCode::Ok;
    for (const QString &path : parser.positionalArguments()) {
        const FileReport report = inspect(path);
        if (report.error == ExitCode::Ok)
            console::print(parser.isSet(json) ? toJsonLine(report) : toLines(report));
        else
            console::complain(path, report.problem);
        code = code == ExitCode::Ok ? report.error : code;
    }
    return code;
}

QString command_line::inspectHelp()
{
    return QStringLiteral(
        R"(Usage: veskhdr inspect [--json] FILE...

Shows what picture files hold: format, size, depth and colours, how and when the
picture was taken, its rating, its gain map, and of a merged picture what it was made
from. The pixels are not decoded, and nothing is changed.

Options:
  --json            Print one JSON object per file, each on a line of its own
  --help            Show this text

Members of an object: file, format, width and height (upright), bitsPerSample,
colours (name of the profile or space), make, model, lens, takenAt (by the camera's
clock), exposureTime (seconds), fNumber, iso, exposureBias (stops), orientation (EXIF's
number), rating, metadata (which of "exif", "xmp", "iptc" there are), merged:
program, version, method, options and sources of a picture that veskhdr made, and
gainMap: width, height, form ("iso" or "xmp"), least and most gain in stops, headroom
(stops above white that a screen needs for all of it), or the problem it has. What a
file does not tell is null.

Exit codes:
   0  all files are shown
  64  wrong options or arguments
  65  a file is no picture; the others are shown
  66  a file is missing, is not a file, or must not be read; the others are shown
  74  standard output could not be written to its end)");
}
