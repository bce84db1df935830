#include "MergeProcess.h"

#include "file_names.h"

#include <csignal>

#include <unistd.h>

#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace {

constexpr char kThreads[] = "VESKHDR_THREADS=";

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
        if (!QByteArrayView(*variable).startsWith(kThreads))
            variables.emplace_back(*variable);
    }
    variables.push_back(kThreads + QByteArray::number(threads));
    argumentList = pointersTo(words);
    environment = pointersTo(variables);
    process.setProgram(program);
    process.setChildProcessModifier([this] { setUpChild(); });
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

void MergeProcess::tellEnd(int exitCode, QProcess::ExitStatus status)
{
    End end;
    const bool isNormal = status == QProcess::NormalExit;
    end.exitCode = isNormal ? exitCode : -1;
    end.signal = isNormal ? 0 : exitCode;
    end.output = process.readAllStandardOutput();
    end.errors = process.readAllStandardError();
    end.milliseconds = timer.elapsed();
    Q_EMIT ended(end);
}
