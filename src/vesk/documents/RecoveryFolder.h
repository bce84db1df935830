#pragma once

#include <QLockFile>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

/// Where this process keeps the recovery files of its documents: a folder of its own with a lock,
/// so that several programs do not take each other's. Any thread but for construction.
class RecoveryFolder
{
public:
    /// root: of all programs' folders. Neither made nor locked before it is needed.
    explicit RecoveryFolder(const QString &root = defaultRoot());
    /// Removes the folder if nothing is left in it.
    ~RecoveryFolder();

    /// Below the application's local data, beside its settings.
    static QString defaultRoot();

    /// Makes the folder and its lock. Returns why not, in words; empty on success, also again.
    QString open();
    /// A path for the file of another document.
    QString newPath();

    /// Files of programs that are no more, oldest first. From now on no other program finds them,
    /// while this one lives.
    QStringList orphans();
    /// Moves the file here, under a new path, which is returned; empty when that is not possible.
    QString adopt(const QString &orphan);
    /// An empty path is none.
    void remove(const QString &path);

private:
    const QString root;
    const QString own;
    std::unique_ptr<QLockFile> lock;
    std::vector<std::unique_ptr<QLockFile>> taken; // of folders whose programs are no more
    int count = 0;
};
