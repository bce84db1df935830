#include "StopSignals.h"

#include <atomic>

#include <fcntl.h>
#include <unistd.h>

namespace {

std::atomic<int> firstSignal = 0;
std::atomic<int> writeEnd = -1;

void onSignal(int signal)
{
    int none = 0;
    if (!firstSignal.compare_exchange_strong(none, signal)) {
        ::signal(signal, SIG_DFL);
        ::raise(signal);
        return;
    }
    (void)!::write(writeEnd, "", 1);
}

} // namespace

StopSignals::StopSignals()
{
    firstSignal = 0;
    if (::pipe2(pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    writeEnd = pipe[1];
    notifier = std::make_unique<QSocketNotifier>(pipe[0], QSocketNotifier::Read);
    connect(notifier.get(), &QSocketNotifier::activated, this, [this] {
        notifier->setEnabled(false);
        Q_EMIT asked();
    });
    struct sigaction action = {};
    action.sa_handler = onSignal;
    for (size_t i = 0; i < kSignals.size(); ++i) {
        ::sigaction(kSignals[i], nullptr, &before[i]);
        if (before[i].sa_handler != SIG_IGN)
            ::sigaction(kSignals[i], &action, nullptr);
    }
}

StopSignals::~StopSignals()
{
    if (pipe[0] < 0)
        return;
    for (size_t i = 0; i < kSignals.size(); ++i)
        ::sigaction(kSignals[i], &before[i], nullptr);
    writeEnd = -1;
    ::close(pipe[0]);
    ::close(pipe[1]);
}

int StopSignals::received()
{
    return firstSignal;
}
