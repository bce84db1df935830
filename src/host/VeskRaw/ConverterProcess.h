#pragma once

#include <QByteArrayList>
#include <QDeadlineTimer>
#include <QString>

#include <atomic>

#include <sys/types.h>

/// The program that converts raw files, at work on one of them: a child process whose standard
/// output is read here. Whatever becomes of it, it is gone when this is. One thread at a time, any;
/// needs no event loop.
class ConverterProcess
{
public:
    enum class Reading { Complete, Ended, Cancelled, TimedOut };

    ConverterProcess() = default;
    ~ConverterProcess();
    ConverterProcess(const ConverterProcess &) = delete;
    ConverterProcess &operator=(const ConverterProcess &) = delete;

    /// Where the program is: beside the library, wherever that has been installed or built.
    static QString programPath();

    /// False when the program cannot be started.
    bool start(const QString &program, const QByteArrayList &arguments);

    /// Reads that many bytes, unless the output ends before, *cancelled (may be null) becomes true,
    /// or the deadline passes.
    Reading read(char *to, qint64 count, const std::atomic<bool> *cancelled,
                 const QDeadlineTimer &deadline);

    /// Ended once the program has, which it should when its output has been read to its end.
    Reading waitForEnd(const std::atomic<bool> *cancelled, const QDeadlineTimer &deadline);
    /// After waitForEnd: whether it exited with status 0, or the status is not to be had.
    bool hasSucceeded() const;
    /// After waitForEnd: whether it could not be loaded.
    bool hasNotBeenLoaded() const;

private:
    void closeOutput();
    bool wait(int options);

    pid_t pid = -1;
    int output = -1; ///< the end that is read
    /// As waitpid gives it; 0 when somebody else has taken it, as programs may that end all their
    /// children.
    int status = 0;
};
