#include "PictureFolder.h"
#include "picture_kinds.h"

#include <QCollator>
#include <QDir>

#include <algorithm>

namespace {

constexpr int kPauseMs = 150;

/// The C locale knows no numbers in names.
QLocale localeForNames()
{
    const QLocale locale;
    return locale.language() == QLocale::C ? QLocale(QLocale::English) : locale;
}

} // namespace

QList<FolderEntry> picturesIn(const QString &folder)
{
    QList<FolderEntry> pictures;
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files | QDir::Readable);
    for (const QFileInfo &file : files) {
        if (pictures::hasPictureSuffix(file.filePath()))
            pictures.append({file.absoluteFilePath(), file.lastModified()});
    }
    QCollator order(localeForNames());
    order.setNumericMode(true);
    order.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(pictures.begin(), pictures.end(),
              [&order](const FolderEntry &a, const FolderEntry &b) {
                  const int difference = order.compare(a.path, b.path);
                  return difference != 0 ? difference < 0 : a.path < b.path;
              });
    return pictures;
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
        const QList<FolderEntry> pictures = picturesIn(asked);
        QMetaObject::invokeMethod(
            this,
            [this, asked, pictures] {
                if (asked == folder)
                    Q_EMIT listed(pictures);
            },
            Qt::QueuedConnection);
    });
}
