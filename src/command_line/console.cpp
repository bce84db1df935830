#include "console.h"

#include "file_names.h"
#include "library_messages.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace {

int outputError = 0; // errno of the first line that could not be printed

bool write(std::FILE *stream, const QString &line)
{
    // File names go out as they came in.
    const QByteArray bytes = file_names::toBytes(line + QLatin1Char('\n'));
    return std::fputs(bytes.constData(), stream) >= 0 && std::fflush(stream) == 0;
}

} // namespace

void console::keepClosedStreamsClosed()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        // The lowest free place is taken; the wrong mode makes every use of it fail as before.
        if (::fcntl(stream, F_GETFD) < 0)
            ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

void console::complain(const QString &file, const QString &reason)
{
    QString line = QStringLiteral("veskhdr: ");
    if (!file.isEmpty())
        line += file + QStringLiteral(": ");
    write(library_messages::ownErrorStream(), line + reason);
}

void console::print(const QString &line)
{
    if (!write(stdout, line) && outputError == 0)
        outputError = errno;
}

QString console::outputFailure()
{
    return outputError == 0 ? QString() : QString::fromLocal8Bit(std::strerror(outputError));
}

bool console::isTerminal()
{
    return ::isatty(STDOUT_FILENO);
}
