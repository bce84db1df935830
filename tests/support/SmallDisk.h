#pragma once

#include <QString>
#include <QTemporaryDir>

/// A folder on a disk of its own, where the test may mount one. GUI thread or none.
class SmallDisk
{
public:
    /// options: of a tmpfs, such as "size=64k".
    explicit SmallDisk(const QString &options);
    ~SmallDisk();

    bool isMounted() const { return mounted; }
    bool makeReadOnly();
    QString path() const { return folder.path(); }

private:
    QTemporaryDir folder;
    bool mounted = false;
};
