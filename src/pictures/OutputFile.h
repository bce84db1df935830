#pragma once

#include <QCoreApplication>
#include <QFile>
#include <QString>

#include <functional>

/// A file that appears under its name only when it is complete: it is written under a temporary
/// name in the same folder and renamed at the end. Unless it is published it leaves nothing behind.
/// One thread at a time.
class OutputFile
{
    Q_DECLARE_TR_FUNCTIONS(OutputFile)

public:
    enum class Error { None, Exists, CannotCreate, WriteFailed };

    /// Called with the temporary name before the file is created and with an empty name when it is
    /// gone, for programs that clean up when they are interrupted.
    using TemporaryNameObserver = std::function<void(const QString &)>;

    /// mayReplace: an existing regular file of that name is replaced, and its permissions kept;
    /// otherwise it is an error, also when it appears while this one is being written.
    OutputFile(const QString &target, bool mayReplace, TemporaryNameObserver observer = {});
    ~OutputFile();
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    /// What open() would refuse already, without touching anything.
    Error check();

    bool open();
    QIODevice &device() { return file; }
    bool hasDeviceFailed() const { return file.error() != QFileDevice::NoError; }

    /// Brings everything to the disk and gives the file its name.
    bool publish();

    /// What went wrong in the call that returned false, with a plain reason (no file name in it) in
    /// the language of the program.
    Error error() const { return failure; }
    QString reason() const { return failureReason; }

private:
    bool fail(Error error, const QString &reason);
    bool failBySystem(Error error, int code);
    static QString systemReason(int code);
    bool giveName();

    const QString target;
    const bool mayReplace;
    const TemporaryNameObserver observer;
    QString temporaryName;
    QFile file;
    Error failure = Error::None;
    QString failureReason;
};
