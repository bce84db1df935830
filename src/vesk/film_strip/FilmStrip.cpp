#include "FilmStrip.h"
#include "FilmStripDelegate.h"
#include "FilmStripModel.h"
#include "FolderSurvey.h"
#include "RatingWriter.h"

#include <QFileInfo>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace {

constexpr QSize kIconSize(120, 84);
constexpr QSize kCellMargin(16, 12);

QString folderOf(const QList<FolderEntry> &entries)
{
    return entries.isEmpty() ? QString() : QFileInfo(entries.constFirst().path).path();
}

bool isPlain(const QEvent *event)
{
    const auto *mouse = static_cast<const QMouseEvent *>(event);
    return mouse->modifiers() == Qt::NoModifier &&
           ((mouse->button() | mouse->buttons()) & Qt::LeftButton);
}

} // namespace

FilmStrip::FilmStrip(QWidget *parent)
    : QListView(parent)
    , pictures(new FilmStripModel(this))
    , shown(new FilmStripOrder(this))
    , survey(new FolderSurvey(this))
    , ratings(new RatingWriter(this))
{
    shown->setSourceModel(pictures);
    setModel(shown);
    setItemDelegate(new FilmStripDelegate(this));
    setViewMode(QListView::IconMode);
    setFlow(QListView::LeftToRight);
    setWrapping(false);
    setMovement(QListView::Static);
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setIconSize(kIconSize);
    setGridSize(kIconSize + kCellMargin + QSize(0, 2 * fontMetrics().height() + 4));
    setMinimumHeight(FilmStrip::sizeHint().height()); // or names and pictures would be cut off
    setAccessibleName(tr("Film Strip"));
    setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(this, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex &index) { Q_EMIT openRequested({pathAt(index)}); });
    connect(survey, &FolderSurvey::ready, this, &FilmStrip::takeNotes);
    connect(ratings, &RatingWriter::failed, this, &FilmStrip::ratingFailed);
}

void FilmStrip::setPictures(const QList<FolderEntry> &entries)
{
    pictures->setPictures(entries);
    const QString before = std::exchange(folder, folderOf(entries));
    if (folder != before)
        horizontalScrollBar()->setValue(horizontalScrollBar()->minimum());
    selectWanted();
    if (std::exchange(surveyed, entries) != entries) // not where an XMP file alone has come
        survey->start(folder, entries);
    viewport()->update(); // the hint for an empty folder
}

void FilmStrip::takeNotes(const FolderNotes &notes)
{
    pictures->setNotes(notes);
    viewport()->update(); // bands reach from cell to cell
    Q_EMIT bracketsChanged();
}

QModelIndex FilmStrip::indexOf(const QString &path) const
{
    return shown->mapFromSource(pictures->indexOf(path));
}

QString FilmStrip::pathAt(const QModelIndex &index) const
{
    return index.data(FilmStripModel::kPathRole).toString();
}

QStringList FilmStrip::selectedPaths() const
{
    QModelIndexList indexes = selectionModel()->selectedIndexes();
    std::sort(indexes.begin(), indexes.end());
    QStringList paths;
    for (const QModelIndex &index : qAsConst(indexes))
        paths.append(pathAt(index));
    return paths;
}

QStringList FilmStrip::paths() const
{
    QStringList all;
    for (int row = 0; row < pictures->rowCount(); ++row)
        all.append(pictures->pathAt(pictures->index(row)));
    return all;
}

void FilmStrip::select(const QStringList &paths)
{
    wanted = paths;
    selectWanted();
}

void FilmStrip::selectWanted()
{
    QItemSelection selection;
    for (const QString &path : qAsConst(wanted)) {
        const QModelIndex index = indexOf(path);
        if (index.isValid())
            selection.select(index, index);
    }
    if (selection.isEmpty())
        return;
    wanted.clear();
    const QModelIndex first = selection.indexes().constFirst();
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    scrollTo(selection.indexes().constLast());
    scrollTo(first);
}

QSize FilmStrip::sizeHint() const
{
    const int height =
        gridSize().height() + horizontalScrollBar()->sizeHint().height() + 2 * frameWidth();
    return {4 * gridSize().width(), height};
}

// --- Brackets ---

/// -1 for none.
int FilmStrip::bracketAt(const QModelIndex &index) const
{
    return index.isValid() ? index.data(FilmStripModel::kBracketRole).toInt() : -1;
}

/// Their numbers, in the order shown.
QList<int> FilmStrip::shownBrackets() const
{
    QList<int> numbers;
    for (int row = 0; row < shown->rowCount(); ++row) {
        const int number = bracketAt(shown->index(row, 0));
        if (number >= 0 && !numbers.contains(number))
            numbers += number;
    }
    return numbers;
}

int FilmStrip::selectedBracket() const
{
    const QStringList paths = selectedPaths();
    return paths.isEmpty() ? 0
                           : int(shownBrackets().indexOf(bracketAt(indexOf(paths.first())))) + 1;
}

bool FilmStrip::stepBracket(int distance)
{
    const QStringList paths = selectedPaths();
    const int from = paths.isEmpty() ? -1 : indexOf(paths.first()).row();
    // Where a bracket begins that comes next in that direction.
    for (int row = from + distance; row >= 0 && row < shown->rowCount(); row += distance) {
        const int number = bracketAt(shown->index(row, 0));
        if (number < 0 || number == bracketAt(shown->index(from, 0)))
            continue;
        select(pictures->brackets().value(number));
        return true;
    }
    return false;
}

std::optional<ResultMark> FilmStrip::markOf(const QString &path) const
{
    return pictures->markOf(path);
}

bool FilmStrip::isBracketSelected() const
{
    const QModelIndexList indexes = selectionModel()->selectedIndexes();
    const int bracket = bracketAt(indexes.value(0));
    return indexes.size() > 1 && bracket >= 0 &&
           std::all_of(indexes.cbegin(), indexes.cend(),
                       [&](const QModelIndex &index) { return bracketAt(index) == bracket; });
}

/// Clicks on brackets are up to mousePressEvent, and hands tremble.
QItemSelectionModel::SelectionFlags FilmStrip::selectionCommand(const QModelIndex &index,
                                                                const QEvent *event) const
{
    const bool isClick =
        event &&
        (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease ||
         (event->type() == QEvent::MouseMove && bracketAt(pressed) == bracketAt(index)));
    if (isClick && isPlain(event) && bracketAt(index) >= 0)
        return QItemSelectionModel::NoUpdate;
    return QListView::selectionCommand(index, event);
}

void FilmStrip::mousePressEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    pressed = index;
    QListView::mousePressEvent(event);
    if (!isPlain(event) || bracketAt(index) < 0)
        return;
    const QStringList bracket = pictures->bracketOf(pathAt(index));
    QStringList before = selectedPaths();
    const bool isAgain = before.size() == bracket.size() &&
                         std::all_of(before.cbegin(), before.cend(),
                                     [&](const QString &path) { return bracket.contains(path); });
    QItemSelection selection;
    for (const QString &path : isAgain ? QStringList{pathAt(index)} : bracket)
        selection.select(indexOf(path), indexOf(path));
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

// --- Rating ---

void FilmStrip::rate(int stars)
{
    const QStringList paths = selectedPaths();
    for (const QString &path : paths) {
        pictures->setStars(path, stars);
        ratings->write(path, stars);
    }
}

// --- Events ---

void FilmStrip::keyPressEvent(QKeyEvent *event)
{
    const bool isOpen = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isOpen) {
        QListView::keyPressEvent(event);
        return;
    }
    const QStringList paths = selectedPaths();
    if (isBracketSelected())
        Q_EMIT mergeRequested();
    else if (!paths.isEmpty())
        Q_EMIT openRequested(paths);
}

void FilmStrip::paintEvent(QPaintEvent *event)
{
    QListView::paintEvent(event);
    if (shown->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(viewport()->rect(), Qt::AlignCenter, tr("No pictures in this folder"));
}

void FilmStrip::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QListView::selectionChanged(selected, deselected);
    Q_EMIT selectedPathsChanged();
}

/// There is only one row: an ordinary wheel scrolls along it.
void FilmStrip::wheelEvent(QWheelEvent *event)
{
    const QPoint angle = event->angleDelta();
    if (angle.x() != 0 || angle.y() == 0) {
        QListView::wheelEvent(event);
        return;
    }
    QScrollBar *bar = horizontalScrollBar();
    bar->setValue(bar->value() - angle.y());
    event->accept();
}
