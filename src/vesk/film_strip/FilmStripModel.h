#pragma once

#include "FolderSurvey.h"
#include "PictureFolder.h"
#include "ThumbnailLoader.h"

#include <QAbstractListModel>
#include <QCache>
#include <QHash>
#include <QIcon>

/// The picture files of a folder by name, with what is known of them, and with their thumbnails,
/// which are made when they are first looked at. The least recently used ones are dropped. GUI
/// thread.
class FilmStripModel : public QAbstractListModel
{
    Q_OBJECT

public:
    static constexpr int kThumbnailSide = 240; // pixels: enough for twice the density
    enum Role {
        kPathRole = Qt::UserRole, // the file's path
        kExposureRole,            // a line of text; empty when not known
        kBracketRole,             // number of the bracket, -1 for none
        kStarsRole,               // 0..5
        kBestStarsRole,           // of the bracket, or its own
        kResultRole,              // whether it was merged
        kTimeRole                 // when it was taken; invalid when not known
    };

    explicit FilmStripModel(QObject *parent = nullptr);

    /// Rows that stay keep their selection; files that have changed get a new thumbnail.
    void setPictures(const QList<FolderEntry> &pictures);
    /// Until they come for other files, too, nothing but the name is known of those.
    void setNotes(const FolderNotes &notes);
    const QList<QStringList> &brackets() const { return notes.brackets; }
    /// The bracket that the file belongs to; empty for none.
    QStringList bracketOf(const QString &path) const;
    /// Of what was merged; nothing for photographs.
    std::optional<ResultMark> markOf(const QString &path) const;
    /// Known from now on, whatever a survey that has read the files before may say.
    void setStars(const QString &path, int stars);

    QString pathAt(const QModelIndex &index) const;
    /// Invalid when path is not here.
    QModelIndex indexOf(const QString &path) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    QIcon thumbnail(const QString &path) const;
    QString exposureOf(const PictureNote &note) const;
    QString tipFor(const QString &path) const;
    QString spoken(const QString &path) const;
    int starsOf(const QString &path) const;
    int bestStarsOf(const QString &path) const;
    void tellAllChanged(const QList<int> &roles);
    void remake();
    void take(int request, const QString &path, const QImage &image);
    void keepOnly(const QList<FolderEntry> &pictures);
    void insertMissing(const QList<FolderEntry> &pictures);

    QList<FolderEntry> entries;
    FolderNotes notes;
    QHash<QString, int> rated; // by the user, in this folder
    mutable QCache<QString, QIcon> thumbnails;
    mutable QHash<QString, int> requested; // path, request: any other answer is stale
    mutable ThumbnailLoader loader;        // asked by data(), which views call when they paint
    QIcon unknown;                         // until there is a thumbnail
    QIcon broken;                          // where there never will be
};
