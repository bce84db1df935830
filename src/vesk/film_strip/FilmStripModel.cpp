#include "FilmStripModel.h"
#include "exposure_texts.h"

#include <VeskScreenColours.h>
#include <picture_rating.h>

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QPainter>
#include <QPixmap>

#include <algorithm>

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
        notes = {};
        rated.clear();
    }
    insertMissing(pictures);
}

void FilmStripModel::setNotes(const FolderNotes &found)
{
    notes = found;
    tellAllChanged({});
}

void FilmStripModel::setStars(const QString &path, int stars)
{
    rated.insert(path, stars);
    tellAllChanged({kStarsRole, kBestStarsRole}); // a bracket's shots stand where the best does
}

void FilmStripModel::tellAllChanged(const QList<int> &roles)
{
    if (!entries.isEmpty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), roles);
}

QStringList FilmStripModel::bracketOf(const QString &path) const
{
    return notes.brackets.value(notes.pictures.value(path).bracket);
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
        return tipFor(path);
    case Qt::AccessibleTextRole:
        return spoken(path);
    case kPathRole:
        return path;
    case kExposureRole:
        return exposureOf(notes.pictures.value(path));
    case kBracketRole:
        return notes.pictures.value(path).bracket;
    case kStarsRole:
        return starsOf(path);
    case kBestStarsRole:
        return bestStarsOf(path);
    case kResultRole:
        return notes.pictures.value(path).mark.has_value();
    case kTimeRole:
        return notes.pictures.value(path).shot.takenAt;
    default:
        return {};
    }
}

/// A result tells the exposure of one of its shots.
QString FilmStripModel::exposureOf(const PictureNote &note) const
{
    if (note.mark)
        return tr("merged");
    QStringList parts{exposure_texts::time(note.shot.exposureSeconds)};
    if (note.stops)
        parts.prepend(exposure_texts::stops(*note.stops));
    parts.removeAll({});
    return parts.join(QStringLiteral("  "));
}

QString FilmStripModel::tipFor(const QString &path) const
{
    const PictureNote note = notes.pictures.value(path);
    QStringList lines{QFileInfo(path).fileName(), exposure_texts::settings(note.shot)};
    if (note.stops)
        lines += tr("Bracket of %1, %2")
                     .arg(bracketOf(path).size())
                     .arg(exposure_texts::stops(*note.stops));
    if (note.mark)
        lines += tr("A merged picture");
    if (note.shot.takenAt.isValid())
        lines += QLocale().toString(note.shot.takenAt, QLocale::ShortFormat);
    lines += QDir::toNativeSeparators(path);
    lines.removeAll({});
    return lines.join(QLatin1Char('\n'));
}

QString FilmStripModel::spoken(const QString &path) const
{
    const PictureNote note = notes.pictures.value(path);
    QStringList parts{QFileInfo(path).fileName(), exposureOf(note)};
    if (note.bracket >= 0)
        parts += tr("bracket %1 of %2").arg(note.bracket + 1).arg(notes.brackets.size());
    if (starsOf(path) > 0)
        parts += tr("rated %1 of %2").arg(starsOf(path)).arg(rating::kMost);
    parts.removeAll({});
    return parts.join(QStringLiteral(", "));
}

int FilmStripModel::starsOf(const QString &path) const
{
    return rated.value(path, notes.pictures.value(path).stars);
}

int FilmStripModel::bestStarsOf(const QString &path) const
{
    int best = starsOf(path);
    const QStringList shots = bracketOf(path);
    for (const QString &shot : shots)
        best = std::max(best, starsOf(shot));
    return best;
}

std::optional<ResultMark> FilmStripModel::markOf(const QString &path) const
{
    return notes.pictures.value(path).mark;
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
    tellAllChanged({Qt::DecorationRole});
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
