#pragma once

#include "PictureFolder.h"
#include "ThumbnailLoader.h"

#include <QAbstractListModel>
#include <QCache>
#include <QHash>
#include <QIcon>

/// The picture files of a folder with their thumbnails, which are made when they are first looked
/// at. The least recently used ones are dropped. GUI thread.
class FilmStripModel : public QAbstractListModel
{
    Q_OBJECT

public:
    static constexpr int kThumbnailSide = 240;     // pixels: enough for twice the density
    static constexpr int kPathRole = Qt::UserRole; // the file's path

    explicit FilmStripModel(QObject *parent = nullptr);

    /// Rows that stay keep their selection; files that have changed get a new thumbnail.
    void setPictures(const QList<FolderEntry> &pictures);
    QString pathAt(const QModelIndex &index) const;
    /// Invalid when path is not here.
    QModelIndex indexOf(const QString &path) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    QIcon thumbnail(const QString &path) const;
    void remake();
    void take(int request, const QString &path, const QImage &image);
    void keepOnly(const QList<FolderEntry> &pictures);
    void insertMissing(const QList<FolderEntry> &pictures);

    QList<FolderEntry> entries;
    mutable QCache<QString, QIcon> thumbnails;
    mutable QHash<QString, int> requested; // path, request: any other answer is stale
    mutable ThumbnailLoader loader;        // asked by data(), which views call when they paint
    QIcon unknown;                         // until there is a thumbnail
    QIcon broken;                          // where there never will be
};
