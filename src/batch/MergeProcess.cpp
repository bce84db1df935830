#include "MergeProcess.h"

#include "file_names.h"

#include <csignal>

#include <unistd.h>

#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace {

constexpr char kThreads[] = "VESKHDR_THREADS=";
constexpr char kProgress[] = "VESKHDR_PROGRESS=";
constexpr char kProgressLine[] = "progress ";

/// As exec() takes them. They point into the texts.
std::vector<char *> pointersTo(std::vector<QByteArray> &texts)
{
    std::vector<char *> pointers;
    for (QByteArray &text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

MergeProcess::MergeProcess(const QString &program, const QStringList &wordTexts, int threads,
                           QObject *parent)
    : QObject(parent)
    , words{file_names::toBytes(program)}
    , starter(::getpid())
{
    for (const QString &word : wordTexts)
        words.push_back(file_names::toBytes(word));
    for (char **variable = ::environ; *variable; ++variable) {
        const QByteArrayView text(*variable);
        if (!text.startsWith(kThreads) && !text.startsWith(kProgress))
            variables.emplace_back(*variable);
    }
    variables.push_back(kThreads + QByteArray::number(threads));
    variables.push_back(QByteArray(kProgress) + "lines");
    argumentList = pointersTo(words);
    environment = pointersTo(variables);
    process.setProgram(program);
    process.setChildProcessModifier([this] { setUpChild(); });
    connect(&process, &QProcess::readyReadStandardError, this, &MergeProcess::readErrors);
    connect(&process, &QProcess::finished, this, &MergeProcess::tellEnd);
    connect(&process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            tellEnd(-1, QProcess::NormalExit);
    });
}

MergeProcess::~MergeProcess()
{
    process.disconnect(this);
    process.terminate();
    process.waitForFinished();
}

void MergeProcess::start()
{
    timer.start();
    errors.clear();
    process.start(QIODevice::ReadOnly);
}

/// Runs between fork() and exec(): calls of the system only.
void MergeProcess::setUpChild() const
{
    // A stop by the keyboard reaches the starter alone, which ends its children in order.
    ::setpgid(0, 0);
#ifdef __linux__
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (::getppid() != pid_t(starter))
        ::raise(SIGTERM);
#endif
    ::execve(argumentList.front(), argumentList.data(), environment.data());
}

void MergeProcess::readErrors()
{
    process.setReadChannel(QProcess::StandardError);
    while (process.canReadLine())
        takeErrorLine(process.readLine());
}

void MergeProcess::takeErrorLine(const QByteArray &line)
{
    if (line.startsWith(kProgressLine))
        Q_EMIT progressed(line.mid(qsizetype(sizeof kProgressLine) - 1).toDouble());
    else
        errors += line;
}

void MergeProcess::tellEnd(int exitCode, QProcess::ExitStatus status)
{
    End end;
    const bool isNormal = status == QProcess::NormalExit;
    end.exitCode = isNormal ? exitCode : -1;
    end.signal = isNormal ? 0 : exitCode;
    end.output = process.readAllStandardOutput();
    readErrors();
    end.errors = errors + process.readAllStandardError();
    end.milliseconds = timer.elapsed();
    Q_EMIT ended(end);
}
