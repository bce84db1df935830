#include "ProgramRun.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr int kLongestRun = 120000; // milliseconds; sanitizer builds on busy machines are slow

} // namespace

Program::Program()
{
    setProgram(qEnvironmentVariable("VESK_BIN_DIR") + QStringLiteral("/veskhdr"));
    setChildProcessModifier([this] { setUpChild(); });
}

ProgramRun Program::run(const QStringList &arguments)
{
    setArguments(arguments);
    start(QIODevice::ReadOnly);
    if (!waitForFinished(kLongestRun)) {
        kill();
        waitForFinished();
        return {-1, readAllStandardOutput(), readAllStandardError()};
    }
    return {exitStatus() == QProcess::NormalExit ? exitCode() : -1, readAllStandardOutput(),
            readAllStandardError()};
}

void Program::setUpChild() const
{
    if (largestFileBytes >= 0) {
        const rlimit limit{rlim_t(largestFileBytes), rlim_t(largestFileBytes)};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    if (addressSpaceBytes >= 0) {
        const rlimit limit{rlim_t(addressSpaceBytes), rlim_t(addressSpaceBytes)};
        ::setrlimit(RLIMIT_AS, &limit);
    }
    if (errorTerminal >= 0)
        ::dup2(errorTerminal, STDERR_FILENO);
    if (outputTerminal >= 0)
        ::dup2(outputTerminal, STDOUT_FILENO);
    if (isOutputFull)
        ::dup2(::open("/dev/full", O_WRONLY), STDOUT_FILENO);
    if (isOutputClosed)
        ::close(STDOUT_FILENO);
}

ProgramRun runProgramIn(const QString &folder, const QStringList &arguments)
{
    Program program;
    program.setWorkingDirectory(folder);
    return program.run(arguments);
}

QList<QByteArray> linesOf(const QByteArray &text)
{
    if (text.isEmpty())
        return {};
    return (text.endsWith('\n') ? text.chopped(1) : text).split('\n');
}
