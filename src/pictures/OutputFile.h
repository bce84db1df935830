#pragma once

#include <QCoreApplication>
#include <QFile>
#include <QString>

#include <functional>

/// A file that appears under its name only when it is complete: it is written under a temporary
/// name in the same folder and renamed at the end. Unless it is published it leaves nothing behind;
/// what a killed program left in the folder is removed when the next file is opened there. One
/// thread at a time.
class OutputFile
{
    Q_DECLARE_TR_FUNCTIONS(OutputFile)

public:
    enum class Error { None, Exists, CannotCreate, WriteFailed };

    /// What becomes of a temporary file: it is about to be made, it is there, it is gone.
    enum class Temporary { Coming, There, Gone };

    /// Called with the temporary name at each step, for programs that clean up when they are
    /// interrupted. A file that could not be made goes from Coming to Gone.
    using TemporaryNameObserver = std::function<void(const QString &, Temporary)>;

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
    int create();
    void tell(Temporary state) const;
    bool giveName();

    const QString target;
    const bool mayReplace;
    const TemporaryNameObserver observer;
    QString temporaryName;
    QFile file;
    Error failure = Error::None;
    QString failureReason;
};
