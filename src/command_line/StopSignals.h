#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <memory>

/// While it lives, a signal that ends programs (Ctrl+C, kill, hang-up) is told to the event loop
/// instead; the second one ends the program as ever. What the caller has us ignore stays ignored.
/// One at a time, on the main thread.
class StopSignals : public QObject
{
    Q_OBJECT

public:
    StopSignals();
    ~StopSignals() override;

    /// The one that came; 0 for none.
    static int received();

Q_SIGNALS:
    void asked();

private:
    static constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP};

    std::array<int, 2> pipe = {-1, -1};
    std::array<struct sigaction, kSignals.size()> before = {};
    std::unique_ptr<QSocketNotifier> notifier;
};
