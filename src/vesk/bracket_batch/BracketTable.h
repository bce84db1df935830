#pragma once

#include "BracketBatch.h"

#include <QTreeWidget>

struct FolderNotes;

/// The brackets of a folder with their shots, which of them take part, and how far each is. GUI
/// thread.
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
    /// Whether the user may change what takes part.
    void setEditable(bool isEditable);
    /// All wait again.
    void resetStates();
    /// How many chosen brackets are in that state.
    int count(BracketBatch::State state) const;

Q_SIGNALS:
    void chosenChanged();

private:
    std::vector<Shot> shotsOn(int row) const;
    QList<QTreeWidgetItem *> linesOn() const;

    QList<std::vector<Shot>> shots; // of each line
};
