#include "commands.h"

#include "align_command.h"
#include "batch_command.h"
#include "console.h"
#include "develop_command.h"
#include "devices_command.h"
#include "group_command.h"
#include "inspect_command.h"
#include "merge_command.h"

#include <algorithm>
#include <array>

namespace {

struct Command
{
    const char *name;
    const char *summary;
    ExitCode (*run)(const QStringList &words);
    QString (*help)();
};

constexpr std::array kCommands = {
    Command{"merge", "Merge pictures of one scene into one", command_line::runMerge,
            command_line::mergeHelp},
    Command{"align", "Lay hand-held shots over one another", command_line::runAlign,
            command_line::alignHelp},
    Command{"develop", "Make a picture for the screen from light", command_line::runDevelop,
            command_line::developHelp},
    Command{"devices", "List or check the OpenCL devices", command_line::runDevices,
            command_line::devicesHelp},
    Command{"group", "Find the brackets in a folder", command_line::runGroup,
            command_line::groupHelp},
    Command{"batch", "Merge all brackets of folders", command_line::runBatch,
            command_line::batchHelp},
    Command{"inspect", "Show what picture files hold", command_line::runInspect,
            command_line::inspectHelp},
};

QString programHelp()
{
    QString help = QStringLiteral("Usage: veskhdr COMMAND [options]\n\n"
                                  "Merges bracketed photographs.\n\nCommands:\n");
    for (const Command &command : kCommands)
        help += QStringLiteral("  %1 %2\n")
                    .arg(QLatin1String(command.name), -11)
                    .arg(QLatin1String(command.summary));
    return help + QStringLiteral("  help [COMMAND]  Show this text, or that of a command\n"
                                 "\nOptions:\n"
                                 "  -h, --help     Show this text; after a command, show its own\n"
                                 "  -v, --version  Show the version\n\n"
                                 "Exit codes are listed in the help of each command.");
}

ExitCode printVersion()
{
    console::print(QStringLiteral("veskhdr " VESK_VERSION));
    return ExitCode::Ok;
}

const Command *commandNamed(const QString &name)
{
    const auto *command =
        std::find_if(kCommands.begin(), kCommands.end(), [&name](const Command &candidate) {
            return name == QLatin1String(candidate.name);
        });
    return command == kCommands.end() ? nullptr : command;
}

ExitCode refuseCommand(const QString &name)
{
    console::complain(name, QStringLiteral("no such command, see 'veskhdr --help'"));
    return ExitCode::Usage;
}

/// Help for the command that the words name, or for the program.
ExitCode printHelp(const QStringList &words)
{
    const Command *command = words.isEmpty() ? nullptr : commandNamed(words.first());
    if (!command && !words.isEmpty())
        return refuseCommand(words.first());
    console::print(command ? command->help() : programHelp());
    return ExitCode::Ok;
}

/// What follows "--" are file names.
bool asksForHelp(const QStringList &words)
{
    const auto end = std::find(words.begin(), words.end(), QLatin1String("--"));
    return std::any_of(words.begin(), end, [](const QString &word) {
        return word == QLatin1String("--help") || word == QLatin1String("-h");
    });
}

ExitCode runWords(const QStringList &words)
{
    const QString &first = words.first();
    if (const Command *command = commandNamed(first))
        return asksForHelp(words) ? printHelp({first}) : command->run(words.mid(1));
    if (first == QLatin1String("--version") || first == QLatin1String("-v"))
        return printVersion();
    if (first == QLatin1String("help"))
        return printHelp(words.mid(1, 1));
    return asksForHelp(words) ? printHelp({}) : refuseCommand(first);
}

} // namespace

ExitCode command_line::run(const QStringList &words)
{
    if (words.isEmpty()) {
        console::complain({}, QStringLiteral("no command given, see 'veskhdr --help'"));
        return ExitCode::Usage;
    }
    const ExitCode code = runWords(words);
    const QString failure = console::outputFailure();
    if (failure.isEmpty())
        return code;
    console::complain({}, QStringLiteral("standard output cannot be written: ") + failure);
    return code == ExitCode::Ok ? ExitCode::WriteFailed : code;
}
