#include "interrupt_cleanup.h"

#include <file_names.h>

#include <array>
#include <atomic>
#include <csignal>
#include <cstring>

#include <limits.h>
#include <pthread.h>
#include <time.h>
#include <unistd.h>

namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP};

// The thread that makes the file says so before it looks whether a signal has arrived, and a signal
// handler says that it has arrived before it looks whether a file is being made. So one of them
// waits: the handler until the file is there to be removed, or the thread for the end.
std::array<char, PATH_MAX> fileName;
std::atomic<bool> hasFile = false;
std::atomic<bool> isChanging = false;
std::atomic<bool> isEnding = false;
static_assert(std::atomic<bool>::is_always_lock_free, "signal handlers may not lock");

sigset_t endingSignals()
{
    sigset_t set = {};
    sigemptyset(&set);
    for (const int signal : kSignals)
        sigaddset(&set, signal);
    return set;
}

void waitALittle()
{
    constexpr timespec kTime = {0, 1000 * 1000};
    ::nanosleep(&kTime, nullptr);
}

void endBy(int signal)
{
    ::signal(signal, SIG_DFL);
    ::raise(signal);
    const sigset_t ending = endingSignals();
    ::pthread_sigmask(SIG_UNBLOCK, &ending, nullptr);
}

/// A second signal, for this thread or another, finds the first one at work and leaves it to it.
void onSignal(int signal)
{
    if (isEnding.exchange(true))
        return;
    while (isChanging)
        waitALittle();
    if (hasFile)
        ::unlink(fileName.data());
    endBy(signal);
}

/// From here on no signal interrupts this thread, and the file is neither made nor named while
/// another thread is ending the program.
void beginChange()
{
    const sigset_t ending = endingSignals();
    ::pthread_sigmask(SIG_BLOCK, &ending, nullptr);
    isChanging = true;
    if (!isEnding)
        return;
    isChanging = false;
    while (true)
        waitALittle();
}

void endChange()
{
    isChanging = false;
    const sigset_t ending = endingSignals();
    ::pthread_sigmask(SIG_UNBLOCK, &ending, nullptr);
}

void nameFile(const QString &path)
{
    const QByteArray name = file_names::toBytes(path);
    if (size_t(name.size()) >= fileName.size())
        return;
    std::memcpy(fileName.data(), name.constData(), size_t(name.size()) + 1);
    hasFile = true;
}

} // namespace

void interrupt::install()
{
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_mask = endingSignals();
    for (const int signal : kSignals) {
        struct sigaction inherited = {};
        // What the caller has us ignore (nohup, background jobs) stays ignored.
        if (::sigaction(signal, nullptr, &inherited) == 0 && inherited.sa_handler != SIG_IGN)
            ::sigaction(signal, &action, nullptr);
    }
    ::signal(SIGXFSZ, SIG_IGN);
}

void interrupt::removeOnInterrupt(const QString &path, OutputFile::Temporary state)
{
    switch (state) {
    case OutputFile::Temporary::Coming:
        beginChange();
        nameFile(path);
        return;
    case OutputFile::Temporary::There:
        endChange();
        return;
    case OutputFile::Temporary::Gone:
        hasFile = false;
        if (isChanging)
            endChange();
        return;
    }
}
