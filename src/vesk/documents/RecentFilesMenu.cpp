#include "RecentFilesMenu.h"
#include "editor_settings.h"

#include <QDir>
#include <QFileInfo>

RecentFilesMenu::RecentFilesMenu(QWidget *parent)
    : QMenu(tr("Open &Recent"), parent)
{
    setToolTipsVisible(true);
    rebuild();
}

void RecentFilesMenu::add(const QString &path)
{
    QStringList paths = settings::recentFiles();
    const QString absolute = QFileInfo(path).absoluteFilePath();
    paths.removeAll(absolute);
    paths.prepend(absolute);
    store(paths.mid(0, kMaximum));
}

void RecentFilesMenu::remove(const QString &path)
{
    QStringList paths = settings::recentFiles();
    if (paths.removeAll(QFileInfo(path).absoluteFilePath()) > 0)
        store(paths);
}

void RecentFilesMenu::store(const QStringList &paths)
{
    settings::setRecentFiles(paths);
    rebuild();
}

void RecentFilesMenu::rebuild()
{
    clear();
    const QStringList paths = settings::recentFiles().mid(0, kMaximum);
    for (const QString &path : paths) {
        QString name = QFileInfo(path).fileName();
        name.replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction *action = addAction(name, this, [this, path] { Q_EMIT fileChosen(path); });
        action->setToolTip(QDir::toNativeSeparators(path));
    }
    setEnabled(!paths.isEmpty());
    if (paths.isEmpty())
        return;
    addSeparator();
    addAction(tr("&Clear List"), this, [this] { store({}); });
}
