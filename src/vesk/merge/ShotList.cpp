#include "ShotList.h"
#include "merge_texts.h"

#include <exposure_texts.h>

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QIcon>
#include <QKeyEvent>
#include <QPixmap>
#include <QSignalBlocker>

#include <algorithm>

namespace {

constexpr QSize kIconSize(72, 54);

} // namespace

ShotList::ShotList(QWidget *parent)
    : QListWidget(parent)
{
    setIconSize(kIconSize);
    setWordWrap(true);
    setSpacing(2);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName(tr("Shots"));
    setDragDropMode(QAbstractItemView::InternalMove);
    setDefaultDropAction(Qt::MoveAction);
    connect(this, &QListWidget::itemChanged, this, [this] {
        describe();
        Q_EMIT setChanged();
    });
}

void ShotList::addPaths(const QStringList &added)
{
    const QSignalBlocker quiet(this);
    for (const QString &path : added) {
        if (!entries.try_emplace(path).second)
            continue;
        auto *line = new QListWidgetItem;
        line->setData(Qt::UserRole, path);
        line->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
                       Qt::ItemIsDragEnabled);
        line->setCheckState(Qt::Checked);
        insertItem(rowFor(path), line);
    }
    if (currentRow() < 0 && count() > 0)
        setCurrentRow(0);
    describe();
}

/// As the command line orders them, unless the user does.
int ShotList::rowFor(const QString &path) const
{
    int row = 0;
    while (row < count() && (isOrderedByUser || pathOf(*item(row)) < path))
        ++row;
    return row;
}

void ShotList::clearShots()
{
    const QSignalBlocker quiet(this);
    clear();
    entries.clear();
    chosen.clear();
    shown.clear();
    isOrderedByUser = false;
}

void ShotList::moveCurrent(int by)
{
    const int row = currentRow();
    if (row < 0 || row + by < 0 || row + by >= count())
        return;
    {
        const QSignalBlocker quiet(this);
        QListWidgetItem *line = takeItem(row);
        insertItem(row + by, line);
        setCurrentRow(row + by);
    }
    onOrderChanged();
}

void ShotList::onOrderChanged()
{
    isOrderedByUser = true;
    describe();
    Q_EMIT setChanged();
}

/// Files from elsewhere are for the window.
void ShotList::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->source() == this)
        QListWidget::dragEnterEvent(event);
    else
        event->ignore();
}

void ShotList::dropEvent(QDropEvent *event)
{
    {
        const QSignalBlocker quiet(this);
        QListWidget::dropEvent(event);
    }
    onOrderChanged();
}

void ShotList::keyPressEvent(QKeyEvent *event)
{
    const bool isUp = event->key() == Qt::Key_Up;
    if ((isUp || event->key() == Qt::Key_Down) && event->modifiers() & Qt::AltModifier)
        moveCurrent(isUp ? -1 : 1);
    else
        QListWidget::keyPressEvent(event);
}

void ShotList::setShot(const MergeShot &shot)
{
    Entry &entry = entries[shot.path];
    entry.shot = shot;
    entry.isRead = true;
    const QSignalBlocker quiet(this);
    for (int row = 0; row < count(); ++row) {
        if (pathOf(*item(row)) != shot.path)
            continue;
        item(row)->setIcon(QIcon(QPixmap::fromImage(shot.thumbnail)));
        if (!shot.problem.isEmpty()) {
            item(row)->setCheckState(Qt::Unchecked);
            item(row)->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
        }
    }
    describe();
}

QStringList ShotList::paths() const
{
    QStringList all;
    for (int row = 0; row < count(); ++row)
        all.append(pathOf(*item(row)));
    return all;
}

bool ShotList::isOn(const QListWidgetItem &item) const
{
    return item.checkState() == Qt::Checked;
}

QString ShotList::pathOf(const QListWidgetItem &item) const
{
    return item.data(Qt::UserRole).toString();
}

QList<MergeShot> ShotList::shotsOn() const
{
    QList<MergeShot> on;
    for (int row = 0; row < count(); ++row) {
        if (!isOn(*item(row)))
            continue;
        on.append(entries.at(pathOf(*item(row))).shot);
        on.last().path = pathOf(*item(row)); // also before it has been read
    }
    return on;
}

/// Among those that are on; -1 for none.
int ShotList::placeOf(const QString &path) const
{
    const QList<MergeShot> on = shotsOn();
    for (int i = 0; i < on.size(); ++i) {
        if (!path.isEmpty() && on[i].path == path)
            return i;
    }
    return -1;
}

int ShotList::chosenReference() const
{
    const int place = placeOf(chosen);
    return place < 0 ? exposure::kAutomatic : place;
}

int ShotList::shownReference() const
{
    return placeOf(shown);
}

void ShotList::chooseCurrentAsReference()
{
    if (!currentItem() || !isOn(*currentItem()))
        return;
    chosen = pathOf(*currentItem());
    shown = chosen;
    describe();
    Q_EMIT setChanged();
}

void ShotList::chooseReferenceAutomatically()
{
    chosen.clear();
    describe();
    Q_EMIT setChanged();
}

void ShotList::chooseReference(int place)
{
    const QList<MergeShot> on = shotsOn();
    chosen = place >= 0 && place < on.size() ? on[place].path : QString();
    if (!chosen.isEmpty())
        shown = chosen;
    describe();
    Q_EMIT setChanged();
}

bool ShotList::isCurrentChosen() const
{
    return currentItem() && pathOf(*currentItem()) == chosen;
}

void ShotList::showReport(const exposure::Report &report, bool tellsAlignment)
{
    const QList<MergeShot> on = shotsOn();
    for (auto &[path, entry] : entries)
        entry.alignment.clear();
    for (int i = 0; i < on.size() && size_t(i) < report.transforms.size(); ++i) {
        if (tellsAlignment && i != report.reference)
            entries[on[i].path].alignment = merge_texts::alignment(report.transforms[size_t(i)]);
    }
    if (report.reference < on.size())
        shown = on[report.reference].path;
    describe();
}

/// The texts of all lines: they depend on the reference, and on who is on.
void ShotList::describe()
{
    const QSignalBlocker quiet(this);
    for (int row = 0; row < count(); ++row) {
        const Entry &entry = entries.at(pathOf(*item(row)));
        const QString name = QFileInfo(pathOf(*item(row))).fileName();
        item(row)->setText(name + QLatin1Char('\n') + description(entry));
        item(row)->setToolTip(entry.shot.problem.isEmpty() ? pathOf(*item(row))
                                                           : entry.shot.problem);
    }
}

QString ShotList::description(const Entry &entry) const
{
    if (!entry.isRead)
        return tr("Reading…");
    if (!entry.shot.problem.isEmpty())
        return entry.shot.problem;
    QStringList parts;
    const auto reference = entries.find(shown);
    if (entry.shot.stops && reference != entries.end() && reference->second.shot.stops)
        parts += exposure_texts::stops(*entry.shot.stops - *reference->second.shot.stops);
    if (entry.shot.seconds > 0)
        parts += exposure_texts::time(entry.shot.seconds);
    if (!shown.isEmpty() && entry.shot.path == shown)
        //: The shot that the others are aligned to.
        parts += tr("★ reference");
    QStringList lines{parts.join(QStringLiteral("  ")), entry.alignment};
    lines.removeAll({});
    return lines.join(QLatin1Char('\n'));
}
