#include "FilmStripModel.h"

#include <VeskScreenColours.h>

#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QPixmap>

namespace {

constexpr int kKeptThumbnails = 400; // at most 92 MB

/// A sheet in the middle grey that fits light and dark themes alike; crossed out for a file that
/// cannot be shown.
QIcon sheet(int side, bool isCrossedOut)
{
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(128, 128, 128, 160), side / 48.0));
    painter.setBrush(QColor(128, 128, 128, 48));
    const QRectF frame(side * 0.08, side * 0.2, side * 0.84, side * 0.6);
    painter.drawRoundedRect(frame, side / 24.0, side / 24.0);
    if (isCrossedOut) {
        painter.drawLine(frame.topLeft(), frame.bottomRight());
        painter.drawLine(frame.bottomLeft(), frame.topRight());
    }
    return pixmap;
}

QHash<QString, QDateTime> byPath(const QList<FolderEntry> &entries)
{
    QHash<QString, QDateTime> times;
    for (const FolderEntry &entry : entries)
        times.insert(entry.path, entry.modified);
    return times;
}

} // namespace

FilmStripModel::FilmStripModel(QObject *parent)
    : QAbstractListModel(parent)
    , thumbnails(kKeptThumbnails)
    , loader(kThumbnailSide)
    , unknown(sheet(kThumbnailSide, false))
    , broken(sheet(kThumbnailSide, true))
{
    connect(&loader, &ThumbnailLoader::ready, this, &FilmStripModel::take);
    connect(&VeskScreenColours::getInstance(), &VeskScreenColours::changed, this,
            &FilmStripModel::remake);
}

void FilmStripModel::setPictures(const QList<FolderEntry> &pictures)
{
    const int before = entries.size();
    keepOnly(pictures);
    if (before > 0 && entries.isEmpty()) { // another folder
        loader.dropWaiting();
        requested.clear();
    }
    insertMissing(pictures);
}

/// Takes out the rows of files that have gone, and the thumbnails of those that have changed.
void FilmStripModel::keepOnly(const QList<FolderEntry> &pictures)
{
    const QHash<QString, QDateTime> times = byPath(pictures);
    for (int row = entries.size() - 1; row >= 0; --row) {
        FolderEntry &entry = entries[row];
        const auto found = times.constFind(entry.path);
        if (found == times.constEnd()) {
            beginRemoveRows({}, row, row);
            thumbnails.remove(entry.path);
            requested.remove(entry.path);
            entries.removeAt(row);
            endRemoveRows();
        } else if (*found != entry.modified) {
            entry.modified = *found;
            thumbnails.remove(entry.path);
            requested.remove(entry.path);
            Q_EMIT dataChanged(index(row), index(row), {Qt::DecorationRole});
        }
    }
}

/// What is left is a part of pictures, in the same order.
void FilmStripModel::insertMissing(const QList<FolderEntry> &pictures)
{
    for (int row = 0; row < pictures.size(); ++row) {
        if (row < entries.size() && entries.at(row).path == pictures.at(row).path)
            continue;
        int last = row;
        while (last + 1 < pictures.size() &&
               (row >= entries.size() || pictures.at(last + 1).path != entries.at(row).path))
            ++last;
        beginInsertRows({}, row, last);
        for (int i = row; i <= last; ++i)
            entries.insert(i, pictures.at(i));
        endInsertRows();
        row = last;
    }
}

QString FilmStripModel::pathAt(const QModelIndex &index) const
{
    return index.isValid() ? entries.value(index.row()).path : QString();
}

QModelIndex FilmStripModel::indexOf(const QString &path) const
{
    for (int row = 0; row < entries.size(); ++row) {
        if (entries.at(row).path == path)
            return index(row);
    }
    return {};
}

int FilmStripModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : entries.size();
}

QVariant FilmStripModel::data(const QModelIndex &index, int role) const
{
    const QString path = pathAt(index);
    if (path.isEmpty())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return QFileInfo(path).fileName();
    case Qt::DecorationRole:
        return thumbnail(path);
    case Qt::ToolTipRole:
        return QDir::toNativeSeparators(path);
    case kPathRole:
        return path;
    default:
        return {};
    }
}

QIcon FilmStripModel::thumbnail(const QString &path) const
{
    if (const QIcon *icon = thumbnails.object(path))
        return *icon;
    if (!requested.contains(path))
        requested.insert(path, loader.request(path));
    return unknown;
}

/// The screen has other colours now.
void FilmStripModel::remake()
{
    loader.dropWaiting();
    thumbnails.clear();
    requested.clear();
    if (!entries.isEmpty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {Qt::DecorationRole});
}

void FilmStripModel::take(int request, const QString &path, const QImage &image)
{
    const QModelIndex found = indexOf(path);
    if (!found.isValid() || requested.value(path) != request)
        return;
    requested.remove(path);
    thumbnails.insert(path, new QIcon(image.isNull() ? broken : QPixmap::fromImage(image)));
    Q_EMIT dataChanged(found, found, {Qt::DecorationRole});
}
