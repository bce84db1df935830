#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QList>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

/// A file of the folder shown, as far as the folder's listing tells.
struct FolderEntry
{
    QString path;
    QDateTime modified;

    bool operator==(const FolderEntry &other) const
    {
        return path == other.path && modified == other.modified;
    }
};

namespace pictures {

/// The picture files of a folder in natural order. Empty when the folder cannot be read. Any
/// thread.
QList<FolderEntry> inFolder(const QString &folder);

} // namespace pictures

/// The folder that the user is working in. Lists its picture files beside the GUI thread, again
/// whenever the folder changes. GUI thread.
class PictureFolder : public QObject
{
    Q_OBJECT

public:
    explicit PictureFolder(QObject *parent = nullptr);
    ~PictureFolder() override;

    /// Empty before the first setPath.
    QString path() const { return folder; }
    void setPath(const QString &path);

Q_SIGNALS:
    void pathChanged(const QString &path);
    /// The pictures of the folder that is set now; answers for one set before are dropped.
    void listed(const QList<FolderEntry> &pictures);

private:
    void list();

    QString folder;
    QFileSystemWatcher watcher;
    QTimer pause; // folds bursts of changes into one listing
    QThreadPool worker;
};
