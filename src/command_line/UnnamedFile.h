#pragma once

#include <QFile>
#include <QString>

/// A temporary file without a name, open for reading and writing: nothing is left of it however the
/// program ends. One thread at a time.
class UnnamedFile
{
public:
    /// False when it cannot be made; reason() says why.
    bool open();

    /// Takes over what the descriptor gives up to its end. False when that fails, or is more than
    /// so many bytes.
    bool fillFrom(int descriptor, qint64 mostBytes);
    /// Gives all of it to the descriptor; false when that fails.
    bool copyTo(int descriptor);

    QFile &device() { return file; }
    /// As long as this lives others, child processes too, can read it under this path.
    QString path() const;
    QString reason() const { return failure; }

private:
    bool fail(const QString &why);

    QFile file;
    QString failure;
};
