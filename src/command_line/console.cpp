#include "console.h"

#include "library_messages.h"

#include <QFile>

#include <cstdio>

#include <unistd.h>

namespace {

void write(std::FILE *stream, const QString &line)
{
    // File names go out as they came in.
    std::fputs(QFile::encodeName(line + QLatin1Char('\n')).constData(), stream);
    std::fflush(stream);
}

} // namespace

void console::complain(const QString &file, const QString &reason)
{
    QString line = QStringLiteral("veskhdr: ");
    if (!file.isEmpty())
        line += file + QStringLiteral(": ");
    write(ownErrorStream(), line + reason);
}

void console::print(const QString &line)
{
    write(stdout, line);
}

bool console::isTerminal()
{
    return ::isatty(STDOUT_FILENO);
}
