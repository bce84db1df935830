#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// File names are bytes, and not all of them are UTF-8. Here a byte that is part of no UTF-8
/// character becomes a lone surrogate, U+DC80 to U+DCFF, so that every name has a text of its own
/// and comes back byte for byte (after PEP 383). QFile and other classes of Qt do not know such
/// texts; JSON shows them as "\udcff". Any thread, reentrant.
namespace file_names {

/// As program arguments and folders hold them.
QString fromBytes(const QByteArray &name);

/// As the system takes them.
QByteArray toBytes(const QString &name);

/// The names of all entries of a folder but "." and "..", in no order; empty when it cannot be
/// read.
QStringList entriesOf(const QString &folder);

/// While it lives, a file can be read under a path that Qt and other libraries understand, also in
/// child processes: the file's own when it is plain text, or else that of an open descriptor.
class ReadablePath
{
public:
    explicit ReadablePath(const QString &name);
    ~ReadablePath();
    ReadablePath(const ReadablePath &) = delete;
    ReadablePath &operator=(const ReadablePath &) = delete;

    /// The name itself when the file cannot be opened.
    const QString &path() const { return readable; }

private:
    QString readable;
    int descriptor = -1;
};

} // namespace file_names
