#include "ConverterProcess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <vector>

#include <csignal>
#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char **environ;

namespace {

/// How often a running conversion looks whether it has been cancelled.
constexpr int kCancelMilliseconds = 20;
/// What a loader exits with that lacks a library or memory.
constexpr int kNotLoadedStatus = 127;

/// Nobody else who starts a process in between is to inherit the ends.
bool openPipe(int (&ends)[2])
{
#if defined(__linux__)
    return ::pipe2(ends, O_CLOEXEC) == 0;
#else
    if (::pipe(ends) != 0)
        return false;
    for (const int end : ends)
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
    return true;
#endif
}

/// What a process gets from its parent: no input, the pipe as output, no blocked signals.
class SpawnSettings
{
public:
    explicit SpawnSettings(int output)
    {
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
        posix_spawnattr_init(&attributes);
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
    }
    ~SpawnSettings()
    {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }
    SpawnSettings(const SpawnSettings &) = delete;
    SpawnSettings &operator=(const SpawnSettings &) = delete;

    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
};

QString folderOfLibrary()
{
    Dl_info info = {};
    if (::dladdr(reinterpret_cast<void *>(&ConverterProcess::programPath), &info) == 0)
        return {};
    return QFileInfo(QFileInfo(QFile::decodeName(info.dli_fname)).canonicalFilePath()).path();
}

} // namespace

QString ConverterProcess::programPath()
{
    // Where it is installed, and where it is built.
    const QString folder = folderOfLibrary();
    for (const QLatin1String place :
         {QLatin1String(VESKRAW_CONVERTER_FOLDER), QLatin1String("../libexec/vesk-hdr")}) {
        const QFileInfo program(QDir(folder).filePath(place), QStringLiteral("vesk-raw-converter"));
        if (program.isExecutable())
            return program.filePath();
    }
    return {};
}

ConverterProcess::~ConverterProcess()
{
    closeOutput();
    if (pid > 0) {
        ::kill(pid, SIGKILL);
        wait(0);
    }
}

bool ConverterProcess::start(const QString &program, const QByteArrayList &arguments)
{
    int ends[2] = {-1, -1};
    if (program.isEmpty() || !openPipe(ends))
        return false;
    output = ends[0];
    QByteArray name = QFile::encodeName(program);
    QByteArrayList owned = arguments;
    std::vector<char *> words{name.data()};
    for (QByteArray &argument : owned)
        words.push_back(argument.data());
    words.push_back(nullptr);
    const SpawnSettings settings(ends[1]);
    const int error = ::posix_spawn(&pid, name.constData(), &settings.actions, &settings.attributes,
                                    words.data(), environ);
    ::close(ends[1]);
    if (error != 0)
        pid = -1;
    return error == 0;
}

ConverterProcess::Reading ConverterProcess::read(char *to, qint64 count,
                                                 const std::atomic<bool> *cancelled,
                                                 const QDeadlineTimer &deadline)
{
    while (count > 0) {
        if (cancelled && *cancelled)
            return Reading::Cancelled;
        if (deadline.hasExpired())
            return Reading::TimedOut;
        pollfd ready = {output, POLLIN, 0};
        if (::poll(&ready, 1, kCancelMilliseconds) <= 0)
            continue;
        const ssize_t length = ::read(output, to, size_t(count));
        if (length < 0 && errno == EINTR)
            continue;
        if (length <= 0)
            return Reading::Ended;
        to += length;
        count -= length;
    }
    return Reading::Complete;
}

ConverterProcess::Reading ConverterProcess::waitForEnd(const std::atomic<bool> *cancelled,
                                                       const QDeadlineTimer &deadline)
{
    closeOutput();
    while (!wait(WNOHANG)) {
        if (cancelled && *cancelled)
            return Reading::Cancelled;
        if (deadline.hasExpired())
            return Reading::TimedOut;
        ::poll(nullptr, 0, 1);
    }
    return Reading::Ended;
}

bool ConverterProcess::hasSucceeded() const
{
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool ConverterProcess::hasNotBeenLoaded() const
{
    return WIFEXITED(status) && WEXITSTATUS(status) == kNotLoadedStatus;
}

void ConverterProcess::closeOutput()
{
    if (output >= 0)
        ::close(output);
    output = -1;
}

/// Whether it has ended.
bool ConverterProcess::wait(int options)
{
    pid_t ended = -1;
    do
        ended = ::waitpid(pid, &status, options);
    while (ended < 0 && errno == EINTR);
    if (ended != 0)
        pid = -1;
    return ended != 0;
}
