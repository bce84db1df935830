#include "FilmStrip.h"
#include "FilmStripDelegate.h"
#include "FilmStripModel.h"

#include <QFileInfo>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr QSize kIconSize(120, 84);
constexpr QSize kCellMargin(16, 12);

QString folderOf(const QList<FolderEntry> &entries)
{
    return entries.isEmpty() ? QString() : QFileInfo(entries.constFirst().path).path();
}

} // namespace

FilmStrip::FilmStrip(QWidget *parent)
    : QListView(parent)
    , pictures(new FilmStripModel(this))
{
    setModel(pictures);
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
    setGridSize(kIconSize + kCellMargin + QSize(0, fontMetrics().height() + 4));
    setMinimumHeight(FilmStrip::sizeHint().height()); // or names and pictures would be cut off
    setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(this, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex &index) { Q_EMIT openRequested({pictures->pathAt(index)}); });
}

void FilmStrip::setPictures(const QList<FolderEntry> &entries)
{
    pictures->setPictures(entries);
    const QString before = std::exchange(folder, folderOf(entries));
    if (folder != before)
        horizontalScrollBar()->setValue(horizontalScrollBar()->minimum());
    selectWanted();
    viewport()->update(); // the hint for an empty folder
}

QStringList FilmStrip::selectedPaths() const
{
    QModelIndexList indexes = selectionModel()->selectedIndexes();
    std::sort(indexes.begin(), indexes.end());
    QStringList paths;
    for (const QModelIndex &index : qAsConst(indexes))
        paths.append(pictures->pathAt(index));
    return paths;
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
        const QModelIndex index = pictures->indexOf(path);
        if (index.isValid())
            selection.select(index, index);
    }
    if (selection.isEmpty())
        return;
    wanted.clear();
    const QModelIndex first = selection.indexes().constFirst();
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    scrollTo(first);
}

QSize FilmStrip::sizeHint() const
{
    const int height =
        gridSize().height() + horizontalScrollBar()->sizeHint().height() + 2 * frameWidth();
    return {4 * gridSize().width(), height};
}

void FilmStrip::keyPressEvent(QKeyEvent *event)
{
    const bool isOpen = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isOpen) {
        QListView::keyPressEvent(event);
        return;
    }
    const QStringList paths = selectedPaths();
    if (!paths.isEmpty())
        Q_EMIT openRequested(paths);
}

void FilmStrip::paintEvent(QPaintEvent *event)
{
    QListView::paintEvent(event);
    if (pictures->rowCount() > 0)
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
