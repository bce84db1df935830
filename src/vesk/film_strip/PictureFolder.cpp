#include "PictureFolder.h"
#include "picture_kinds.h"

#include <natural_order.h>

#include <QDir>

#include <algorithm>

namespace {

constexpr int kPauseMs = 150;

} // namespace

QList<FolderEntry> pictures::inFolder(const QString &folder)
{
    QList<FolderEntry> entries;
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files | QDir::Readable);
    for (const QFileInfo &file : files) {
        if (hasPictureSuffix(file.filePath()))
            entries.append({file.absoluteFilePath(), file.lastModified()});
    }
    // What was made of a picture stands behind it: "a merged.jpg" behind "a.jpg".
    std::sort(entries.begin(), entries.end(), [](const FolderEntry &a, const FolderEntry &b) {
        const QFileInfo one(a.path);
        const QFileInfo other(b.path);
        return one.completeBaseName() != other.completeBaseName()
                   ? brackets::isBeforeNaturally(one.completeBaseName(), other.completeBaseName())
                   : brackets::isBeforeNaturally(one.fileName(), other.fileName());
    });
    return entries;
}

PictureFolder::PictureFolder(QObject *parent)
    : QObject(parent)
{
    worker.setMaxThreadCount(1);
    pause.setSingleShot(true);
    pause.setInterval(kPauseMs);
    connect(&watcher, &QFileSystemWatcher::directoryChanged, &pause,
            QOverload<>::of(&QTimer::start));
    connect(&pause, &QTimer::timeout, this, &PictureFolder::list);
}

PictureFolder::~PictureFolder()
{
    worker.clear();
    worker.waitForDone();
}

void PictureFolder::setPath(const QString &path)
{
    const QString absolute = QDir(path).absolutePath();
    if (folder == absolute)
        return;
    if (!folder.isEmpty())
        watcher.removePath(folder);
    folder = absolute;
    watcher.addPath(folder);
    Q_EMIT pathChanged(folder);
    list();
}

void PictureFolder::list()
{
    worker.clear();
    worker.start([this, asked = folder] {
        const QList<FolderEntry> pictures = pictures::inFolder(asked);
        QMetaObject::invokeMethod(
            this,
            [this, asked, pictures] {
                if (asked == folder)
                    Q_EMIT listed(pictures);
            },
            Qt::QueuedConnection);
    });
}
