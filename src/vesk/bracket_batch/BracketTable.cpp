#include "BracketTable.h"

#include <FolderSurvey.h>
#include <exposure_texts.h>

#include <QFileInfo>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QTreeWidgetItemIterator>

namespace {

enum Column { kName, kShots, kState };
constexpr int kStateRole = Qt::UserRole;

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

QTreeWidgetItem *checkable(const QString &name, const QString &second)
{
    auto *line = new QTreeWidgetItem({name, second, QString()});
    line->setCheckState(kName, Qt::Checked);
    return line;
}

QTreeWidgetItem *lineOf(const std::vector<Shot> &bracket, const FolderNotes &notes)
{
    auto *line =
        checkable(BracketTable::tr("%1 to %2").arg(nameOf(bracket.front()), nameOf(bracket.back())),
                  QString::number(bracket.size()));
    for (const Shot &shot : bracket) {
        const std::optional<double> stops = notes.pictures.value(shot.path).stops;
        line->addChild(checkable(nameOf(shot), stops ? exposure_texts::stops(*stops) : QString()));
    }
    line->setData(kState, kStateRole, int(BracketBatch::State::Waiting));
    return line;
}

} // namespace

BracketTable::BracketTable(QWidget *parent)
    : QTreeWidget(parent)
{
    setHeaderLabels({tr("Bracket"), tr("Shots"), tr("State")});
    header()->setSectionResizeMode(kName, QHeaderView::Stretch);
    header()->setSectionResizeMode(kShots, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(kState, QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    setAccessibleName(tr("Brackets"));
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem *, int column) {
        if (column == kName)
            Q_EMIT chosenChanged();
    });
}

void BracketTable::setNotes(const FolderNotes &notes)
{
    clear();
    shots.clear();
    for (const QStringList &paths : notes.brackets) {
        std::vector<Shot> bracket;
        for (const QString &path : paths)
            bracket.push_back(notes.pictures.value(path).shot);
        shots += bracket;
        addTopLevelItem(lineOf(bracket, notes));
    }
    resetStates();
    Q_EMIT chosenChanged();
}

std::vector<Shot> BracketTable::shotsOn(int row) const
{
    std::vector<Shot> on;
    const QTreeWidgetItem *line = topLevelItem(row);
    for (int i = 0; i < line->childCount(); ++i) {
        if (line->child(i)->checkState(kName) == Qt::Checked)
            on.push_back(shots[row][size_t(i)]);
    }
    return on;
}

QList<QTreeWidgetItem *> BracketTable::linesOn() const
{
    QList<QTreeWidgetItem *> on;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem *line = topLevelItem(i);
        if (line->checkState(kName) == Qt::Checked && shotsOn(i).size() > 1)
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
    line->setText(kState, textOf(state));
    line->setToolTip(kState, text);
    line->setData(kState, kStateRole, int(state));
    if (!text.isEmpty()) {
        line->setText(kState, tr("%1: %2").arg(textOf(state), text.section(QLatin1Char(':'), -1)));
        header()->resizeSections(QHeaderView::ResizeToContents);
    }
    scrollToItem(line);
}

void BracketTable::setEditable(bool isEditable)
{
    const QSignalBlocker quiet(this);
    for (QTreeWidgetItemIterator line(this); *line; ++line)
        (*line)->setFlags((*line)->flags().setFlag(Qt::ItemIsUserCheckable, isEditable));
}

void BracketTable::resetStates()
{
    for (int i = 0; i < topLevelItemCount(); ++i) {
        topLevelItem(i)->setText(kState, textOf(BracketBatch::State::Waiting));
        topLevelItem(i)->setData(kState, kStateRole, int(BracketBatch::State::Waiting));
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
