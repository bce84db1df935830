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
    const auto nameOf = [](const FolderEntry &entry) { return QFileInfo(entry.path).fileName(); };
    std::sort(entries.begin(), entries.end(), [&](const FolderEntry &a, const FolderEntry &b) {
        return brackets::isBeforeNaturally(nameOf(a), nameOf(b));
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
