#include "BracketTable.h"
#include "BracketStateDelegate.h"

#include <FolderSurvey.h>
#include <exposure_texts.h>

#include <QAction>
#include <QFileInfo>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QTreeWidgetItemIterator>

#include <algorithm>

namespace {

enum Column { kName, kShots, kState };
constexpr int kStateRole = Qt::UserRole;
constexpr int kProgressRole = BracketStateDelegate::kProgressRole;
constexpr int kPathRole = Qt::UserRole + 2; ///< of the shot, or the bracket's first one

using Place = BracketArrangement::Place;

QString nameOf(const Shot &shot)
{
    return QFileInfo(shot.path).fileName();
}

QString textOf(BracketBatch::State state)
{
    switch (state) {
    case BracketBatch::State::Waiting:
        return BracketTable::tr("waiting");
    case BracketBatch::State::Merging:
        return BracketTable::tr("Merging…");
    case BracketBatch::State::Merged:
        return BracketTable::tr("merged");
    case BracketBatch::State::DoneAlready:
        return BracketTable::tr("done already");
    case BracketBatch::State::Failed:
        return BracketTable::tr("failed");
    case BracketBatch::State::Stopped:
        break;
    }
    return BracketTable::tr("stopped");
}

QTreeWidgetItem *checkable(const QString &name, const QString &second, const QString &path)
{
    auto *line = new QTreeWidgetItem({name, second, QString()});
    line->setCheckState(kName, Qt::Checked);
    line->setData(kName, kPathRole, path);
    return line;
}

QString pathOf(const QTreeWidgetItem *line)
{
    return line->data(kName, kPathRole).toString();
}

bool isOn(const QTreeWidgetItem *line)
{
    return line->checkState(kName) == Qt::Checked;
}

bool isOff(const QTreeWidgetItem *line)
{
    return !isOn(line);
}

void switchOff(QTreeWidgetItem *line)
{
    line->setCheckState(kName, Qt::Unchecked);
}

bool isOpen(const QTreeWidgetItem *line)
{
    return line->isExpanded();
}

void open(QTreeWidgetItem *line)
{
    line->setExpanded(true);
}

} // namespace

BracketTable::BracketTable(QWidget *parent)
    : QTreeWidget(parent)
    , joinAction(addEdit(tr("&Join"), "joinAction", Qt::CTRL | Qt::Key_J, &BracketTable::join))
    , splitAction(
          addEdit(tr("Sp&lit Here"), "splitAction", Qt::CTRL | Qt::Key_K, &BracketTable::split))
    , switchAction(addEdit(tr("Take Out or Put &Back"), "switchAction", QKeySequence::Delete,
                           &BracketTable::switchSelected))
{
    joinAction->setToolTip(tr("Makes one bracket of the selected brackets and shots"));
    splitAction->setToolTip(tr("Begins another bracket with the selected shot"));
    setHeaderLabels({tr("Bracket"), tr("Shots"), tr("State")});
    header()->setSectionResizeMode(kName, QHeaderView::Stretch);
    header()->setSectionResizeMode(kShots, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(kState, QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    setItemDelegateForColumn(kState, new BracketStateDelegate(this));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    setAccessibleName(tr("Brackets"));
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem *, int column) {
        if (column == kName)
            Q_EMIT chosenChanged();
    });
    connect(this, &QTreeWidget::itemSelectionChanged, this, &BracketTable::updateEdits);
    updateEdits();
}

QAction *BracketTable::addEdit(const QString &text, const char *name, const QKeySequence &keys,
                               void (BracketTable::*change)())
{
    auto *action = new QAction(text, this);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, change);
    addAction(action);
    return action;
}

void BracketTable::setNotes(const FolderNotes &notes)
{
    QList<BracketArrangement::Shots> brackets;
    for (const QStringList &paths : notes.brackets) {
        brackets += BracketArrangement::Shots();
        for (const QString &path : paths)
            brackets.last().push_back(notes.pictures.value(path).shot);
    }
    BracketArrangement::Shots loose;
    stops.clear();
    for (auto note = notes.pictures.cbegin(); note != notes.pictures.cend(); ++note) {
        if (note->stops)
            stops.insert(note.key(), exposure_texts::stops(*note->stops));
        if (note->bracket >= 0 || note->mark)
            continue;
        loose.push_back(note->shot);
        loose.back().path = note.key(); // also of one that tells nothing
    }
    arrangement = {brackets, loose};
    if (!notes.pictures.isEmpty())
        folder = QFileInfo(notes.pictures.cbegin().key()).path();
    fill();
    foundTexts = arrangementTexts();
}

/// "+" or "-", whether it takes part, of the bracket and before the name of each shot; "=" for the
/// loose ones. No name has a slash.
QStringList BracketTable::arrangementTexts() const
{
    const auto sign = [](const QTreeWidgetItem *line) {
        return QLatin1Char(isOn(line) ? '+' : '-');
    };
    QStringList texts;
    for (int i = 0; i < arrangement.bracketCount(); ++i) {
        QStringList names;
        for (int j = 0; j < topLevelItem(i)->childCount(); ++j) {
            const QTreeWidgetItem *line = topLevelItem(i)->child(j);
            names += sign(line) + QFileInfo(pathOf(line)).fileName();
        }
        texts += sign(topLevelItem(i)) + names.join(QLatin1Char('/'));
    }
    QStringList names;
    for (const Shot &shot : arrangement.shotsOf(arrangement.bracketCount()))
        names += nameOf(shot);
    return texts + QStringList(QLatin1Char('=') + names.join(QLatin1Char('/')));
}

void BracketTable::arrangeAs(const QStringList &texts)
{
    const auto pathFor = [this](const QString &name) { return folder + QLatin1Char('/') + name; };
    QList<QStringList> groups;
    QStringList loose;
    Marks off;
    for (const QString &text : texts) {
        const bool isLoose = text.startsWith(QLatin1Char('='));
        QStringList paths;
        for (const QString &name : text.mid(1).split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
            paths += pathFor(isLoose ? name : name.mid(1));
            if (!isLoose && name.startsWith(QLatin1Char('-')))
                off.shots += paths.last();
        }
        if (text.startsWith(QLatin1Char('-')))
            off.brackets += paths.value(0);
        if (isLoose)
            loose = paths;
        else
            groups += paths;
    }
    arrangement.arrangeAs(groups, loose);
    fill();
    mark(off, switchOff);
}

void BracketTable::fill()
{
    {
        const QSignalBlocker quiet(this);
        clear();
        for (int i = 0; i < arrangement.bracketCount(); ++i)
            addTopLevelItem(bracketLine(arrangement.shotsOf(i)));
        addLooseShots();
        resetStates();
    }
    updateEdits();
    Q_EMIT chosenChanged();
}

QTreeWidgetItem *BracketTable::bracketLine(const BracketArrangement::Shots &shots) const
{
    auto *line = checkable(tr("%1 to %2").arg(nameOf(shots.front()), nameOf(shots.back())),
                           QString::number(shots.size()), shots.front().path);
    for (const Shot &shot : shots)
        line->addChild(shotLine(shot));
    return line;
}

QTreeWidgetItem *BracketTable::shotLine(const Shot &shot) const
{
    QTreeWidgetItem *line = checkable(nameOf(shot), stops.value(shot.path), shot.path);
    line->setToolTip(kName, exposure_texts::settings(shot));
    return line;
}

/// They take no part before they are joined.
void BracketTable::addLooseShots()
{
    const BracketArrangement::Shots &loose = arrangement.shotsOf(arrangement.bracketCount());
    if (loose.empty())
        return;
    auto *group = new QTreeWidgetItem({tr("In no bracket"), QString::number(loose.size())});
    for (const Shot &shot : loose) {
        auto *line =
            new QTreeWidgetItem({nameOf(shot), exposure_texts::time(shot.exposureSeconds)});
        line->setToolTip(kName, exposure_texts::settings(shot));
        group->addChild(line);
    }
    addTopLevelItem(group);
}

Place BracketTable::placeOf(const QTreeWidgetItem *line) const
{
    auto *parent = line->parent();
    return {indexOfTopLevelItem(parent), parent->indexOfChild(const_cast<QTreeWidgetItem *>(line))};
}

/// Of a bracket all its shots.
QList<Place> BracketTable::selectedPlaces() const
{
    QList<Place> places;
    const QList<QTreeWidgetItem *> lines = selectedItems();
    for (const QTreeWidgetItem *line : lines) {
        for (int i = 0; i < line->childCount(); ++i)
            places += placeOf(line->child(i));
        if (line->parent() && !line->parent()->isSelected())
            places += placeOf(line);
    }
    return places;
}

void BracketTable::updateEdits()
{
    const QList<Place> places = selectedPlaces();
    joinAction->setEnabled(isEditable && arrangement.canJoin(places));
    splitAction->setEnabled(isEditable && places.size() == 1 &&
                            arrangement.canSplit(places.first()));
    switchAction->setEnabled(isEditable && std::any_of(places.begin(), places.end(), [&](Place at) {
                                 return at.bracket < arrangement.bracketCount();
                             }));
}

BracketTable::Marks BracketTable::marks(bool (*isMarked)(const QTreeWidgetItem *)) const
{
    Marks found;
    for (int i = 0; i < arrangement.bracketCount(); ++i) {
        const QTreeWidgetItem *line = topLevelItem(i);
        if (isMarked(line))
            found.brackets += pathOf(line);
        for (int j = 0; j < line->childCount(); ++j) {
            if (isMarked(line->child(j)))
                found.shots += pathOf(line->child(j));
        }
    }
    return found;
}

void BracketTable::mark(const Marks &marks, void (*setMark)(QTreeWidgetItem *))
{
    for (int i = 0; i < arrangement.bracketCount(); ++i) {
        QTreeWidgetItem *line = topLevelItem(i);
        if (marks.brackets.contains(pathOf(line)))
            setMark(line);
        for (int j = 0; j < line->childCount(); ++j) {
            if (marks.shots.contains(pathOf(line->child(j))))
                setMark(line->child(j));
        }
    }
}

/// Of what is joined everything takes part, whatever was taken out before.
void BracketTable::join()
{
    Marks off = marks(isOff);
    Marks opened = marks(isOpen);
    const int made = arrangement.join(selectedPlaces());
    const BracketArrangement::Shots &joined = arrangement.shotsOf(made);
    for (const Shot &shot : joined) {
        off.shots.remove(shot.path);
        off.brackets.remove(shot.path);
    }
    opened.brackets += joined.front().path;
    fillAgain(off, opened, made);
}

void BracketTable::split()
{
    const Place place = selectedPlaces().first();
    const BracketArrangement::Shots whole = arrangement.shotsOf(place.bracket);
    const QString first = whole.front().path;
    const QString second = whole[size_t(place.shot)].path;
    Marks off = marks(isOff);
    Marks opened = marks(isOpen);
    opened.brackets += {first, second};
    if (off.brackets.contains(first))
        off.brackets += second;
    arrangement.split(place);
    fillAgain(off, opened, std::min(place.bracket, arrangement.bracketCount() - 1));
}

void BracketTable::fillAgain(const Marks &off, const Marks &opened, int current)
{
    fill();
    mark(opened, open);
    mark(off, switchOff);
    setCurrentItem(topLevelItem(current));
}

/// All out when one of them takes part, else all back.
void BracketTable::switchSelected()
{
    QList<QTreeWidgetItem *> lines = selectedItems();
    lines.removeIf([](const QTreeWidgetItem *line) {
        return line->data(kName, Qt::CheckStateRole).isNull(); // loose
    });
    const bool isOneOn = std::any_of(lines.begin(), lines.end(), isOn);
    for (QTreeWidgetItem *line : std::as_const(lines))
        line->setCheckState(kName, isOneOn ? Qt::Unchecked : Qt::Checked);
}

std::vector<Shot> BracketTable::shotsOn(int row) const
{
    std::vector<Shot> on;
    const QTreeWidgetItem *line = topLevelItem(row);
    for (int i = 0; i < line->childCount(); ++i) {
        if (isOn(line->child(i)))
            on.push_back(arrangement.shotsOf(row)[size_t(i)]);
    }
    return on;
}

QList<QTreeWidgetItem *> BracketTable::linesOn() const
{
    QList<QTreeWidgetItem *> on;
    for (int i = 0; i < arrangement.bracketCount(); ++i) {
        QTreeWidgetItem *line = topLevelItem(i);
        if (isOn(line) && shotsOn(i).size() > 1)
            on += line;
    }
    return on;
}

std::vector<Bracket> BracketTable::chosen() const
{
    std::vector<Bracket> brackets;
    const QList<QTreeWidgetItem *> lines = linesOn();
    for (QTreeWidgetItem *line : lines)
        brackets.push_back({shotsOn(indexOfTopLevelItem(line)), {}});
    return brackets;
}

void BracketTable::showState(int bracket, BracketBatch::State state, const QString &text)
{
    QTreeWidgetItem *line = linesOn().value(bracket);
    if (!line)
        return;
    const bool isMerging = state == BracketBatch::State::Merging;
    line->setText(kState, textOf(state));
    line->setToolTip(kState, text);
    line->setData(kState, kStateRole, int(state));
    line->setData(kState, kProgressRole, isMerging ? QVariant(0.0) : QVariant());
    if (!text.isEmpty()) {
        line->setText(kState, tr("%1: %2").arg(textOf(state), text.section(QLatin1Char(':'), -1)));
        header()->resizeSections(QHeaderView::ResizeToContents);
    }
    scrollToItem(line);
}

void BracketTable::showProgress(int bracket, double fraction)
{
    QTreeWidgetItem *line = linesOn().value(bracket);
    if (line && line->data(kState, kProgressRole).isValid())
        line->setData(kState, kProgressRole, fraction);
}

void BracketTable::setEditable(bool isEditableNow)
{
    isEditable = isEditableNow;
    const QSignalBlocker quiet(this);
    for (QTreeWidgetItemIterator line(this); *line; ++line)
        (*line)->setFlags((*line)->flags().setFlag(Qt::ItemIsUserCheckable, isEditable));
    updateEdits();
}

void BracketTable::resetStates()
{
    for (int i = 0; i < arrangement.bracketCount(); ++i) {
        QTreeWidgetItem *line = topLevelItem(i);
        line->setText(kState, textOf(BracketBatch::State::Waiting));
        line->setToolTip(kState, {});
        line->setData(kState, kStateRole, int(BracketBatch::State::Waiting));
    }
}

int BracketTable::count(BracketBatch::State state) const
{
    int found = 0;
    const QList<QTreeWidgetItem *> lines = linesOn();
    for (const QTreeWidgetItem *line : lines)
        found += line->data(kState, kStateRole).toInt() == int(state);
    return found;
}
