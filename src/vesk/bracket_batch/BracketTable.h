#pragma once

#include "BracketArrangement.h"
#include "BracketBatch.h"

#include <QHash>
#include <QSet>
#include <QTreeWidget>

struct FolderNotes;

/// The brackets of a folder with their shots, which of them take part, and how far each is; behind
/// them the shots that are in none. Selected lines can be joined into one bracket, and a bracket
/// can be cut before a shot; what the lines say is what is merged. GUI thread.
class BracketTable : public QTreeWidget
{
    Q_OBJECT

public:
    explicit BracketTable(QWidget *parent = nullptr);

    void setNotes(const FolderNotes &notes);
    /// Those that take part, with the shots that do: two or more each.
    std::vector<Bracket> chosen() const;
    /// Of a bracket among the chosen ones.
    void showState(int bracket, BracketBatch::State state, const QString &text);
    /// 0..1, while it is being merged.
    void showProgress(int bracket, double fraction);
    /// Whether the user may change what takes part.
    void setEditable(bool isEditable);
    /// All wait again.
    void resetStates();
    /// How many chosen brackets are in that state.
    int count(BracketBatch::State state) const;
    /// What stands in the lines and takes part, as texts by which another table of the same folder
    /// shows it again.
    QStringList arrangementTexts() const;
    void arrangeAs(const QStringList &texts);
    /// Whether that is something else than what was found.
    bool isEdited() const { return arrangementTexts() != foundTexts; }
    /// Changes to what is selected; also in the context menu.
    QList<QAction *> edits() const { return {joinAction, splitAction, switchAction}; }

Q_SIGNALS:
    void chosenChanged();

private:
    /// What lines keep when they are made anew, by the paths of their (first) shots.
    struct Marks
    {
        QSet<QString> brackets;
        QSet<QString> shots;
    };

    QAction *addEdit(const QString &text, const char *name, const QKeySequence &keys,
                     void (BracketTable::*change)());
    void join();
    void split();
    void switchSelected();
    void fill();
    QTreeWidgetItem *bracketLine(const BracketArrangement::Shots &shots) const;
    QTreeWidgetItem *shotLine(const Shot &shot) const;
    void addLooseShots();
    Marks marks(bool (*isMarked)(const QTreeWidgetItem *)) const;
    void mark(const Marks &marks, void (*setMark)(QTreeWidgetItem *));
    void fillAgain(const Marks &off, const Marks &opened, int current);
    void updateEdits();
    BracketArrangement::Place placeOf(const QTreeWidgetItem *line) const;
    QList<BracketArrangement::Place> selectedPlaces() const;
    std::vector<Shot> shotsOn(int row) const;
    QList<QTreeWidgetItem *> linesOn() const;

    BracketArrangement arrangement;
    QHash<QString, QString> stops; // in words, by path
    QStringList foundTexts;        // before any edit
    QString folder;
    bool isEditable = true;
    QAction *joinAction;
    QAction *splitAction;
    QAction *switchAction;
};
