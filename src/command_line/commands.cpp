#include "commands.h"

#include "console.h"
#include "devices_command.h"
#include "group_command.h"
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
    Command{"merge", "Merge pictures of one scene into one", runMerge, mergeHelp},
    Command{"devices", "List or check the OpenCL devices", runDevices, devicesHelp},
    Command{"group", "Find the brackets in a folder", runGroup, groupHelp},
};

QString programHelp()
{
    QString help = QStringLiteral("Usage: veskhdr COMMAND [options]\n\n"
                                  "Merges bracketed photographs.\n\nCommands:\n");
    for (const Command &command : kCommands)
        help += QStringLiteral("  %1 %2\n")
                    .arg(QLatin1String(command.name), -11)
                    .arg(QLatin1String(command.summary));
    return help + QStringLiteral("\nOptions:\n"
                                 "  --help      Show this text; after a command, show its own\n"
                                 "  --version   Show the version\n\n"
                                 "Exit codes are listed in the help of each command.");
}

/// What follows "--" are file names.
bool asksForHelp(const QStringList &words)
{
    const auto end = std::find(words.begin(), words.end(), QLatin1String("--"));
    return std::any_of(words.begin(), end, [](const QString &word) {
        return word == QLatin1String("--help") || word == QLatin1String("-h");
    });
}

ExitCode run(const Command &command, const QStringList &words)
{
    if (!asksForHelp(words))
        return command.run(words);
    console::print(command.help());
    return ExitCode::Ok;
}

} // namespace

ExitCode runProgram(const QStringList &words)
{
    if (words.isEmpty()) {
        console::complain({}, QStringLiteral("no command given, see 'veskhdr --help'"));
        return ExitCode::Usage;
    }
    for (const Command &command : kCommands) {
        if (words.first() == QLatin1String(command.name))
            return run(command, words.mid(1));
    }
    if (words.first() == QLatin1String("--version")) {
        console::print(QStringLiteral("veskhdr " VESK_VERSION));
        return ExitCode::Ok;
    }
    if (asksForHelp(words)) {
        console::print(programHelp());
        return ExitCode::Ok;
    }
    console::complain(words.first(), QStringLiteral("no such command, see 'veskhdr --help'"));
    return ExitCode::Usage;
}
