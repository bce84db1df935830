#include "interrupt_cleanup.h"

#include <QFile>

#include <array>
#include <atomic>
#include <csignal>
#include <cstring>

#include <limits.h>
#include <unistd.h>

namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP};

std::array<char, PATH_MAX> fileName;
std::atomic<bool> hasFile = false;
static_assert(std::atomic<bool>::is_always_lock_free, "signal handlers may not lock");

void onSignal(int signal)
{
    if (hasFile)
        ::unlink(fileName.data());
    ::raise(signal); // the default action, see install()
}

} // namespace

void interrupt::install()
{
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESETHAND;
    for (const int signal : kSignals) {
        struct sigaction inherited = {};
        // What the caller has us ignore (nohup, background jobs) stays ignored.
        if (::sigaction(signal, nullptr, &inherited) == 0 && inherited.sa_handler != SIG_IGN)
            ::sigaction(signal, &action, nullptr);
    }
    ::signal(SIGXFSZ, SIG_IGN);
}

void interrupt::removeOnInterrupt(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    hasFile = false;
    if (name.isEmpty() || size_t(name.size()) >= fileName.size())
        return;
    std::memcpy(fileName.data(), name.constData(), size_t(name.size()) + 1);
    hasFile = true;
}
