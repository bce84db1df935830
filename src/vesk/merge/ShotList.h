#pragma once

#include "MergeShot.h"

#include <set_merge.h>

#include <QListWidget>
#include <QStringList>

#include <map>

/// The shots of a set in merge order, with thumbnail, exposure against the reference, how they were
/// aligned, and whether they take part. The space bar switches one on or off; dragging, and Alt
/// with the arrows, put them in another order. GUI thread.
class ShotList : public QListWidget
{
    Q_OBJECT

public:
    explicit ShotList(QWidget *parent = nullptr);

    /// Adds the files that are not here yet, by path, or at the end once the order is the user's.
    void addPaths(const QStringList &paths);
    void clearShots();
    /// Moves the current shot up or down.
    void moveCurrent(int by);
    /// What has been read of one of them. A shot with a problem is switched off for good.
    void setShot(const MergeShot &shot);

    QStringList paths() const;
    /// The shots that take part, in merge order.
    QList<MergeShot> shotsOn() const;
    /// What was chosen, as a place among shotsOn; exposure::kAutomatic for none.
    int chosenReference() const;
    /// What is in use, as far as it is known; -1 when it is not.
    int shownReference() const;
    void chooseCurrentAsReference();
    void chooseReferenceAutomatically();
    /// By its place among shotsOn; exposure::kAutomatic for none.
    void chooseReference(int place);
    bool isCurrentChosen() const;
    /// Which shot the others were aligned to, and how, as a merge of shotsOn has told.
    void showReport(const exposure::Report &report, bool tellsAlignment);

Q_SIGNALS:
    /// What takes part, or the reference.
    void setChanged();

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    struct Entry
    {
        MergeShot shot;
        bool isRead = false;
        QString alignment; ///< in words; empty when not known
    };

    int rowFor(const QString &path) const;
    void onOrderChanged();
    int placeOf(const QString &path) const;
    bool isOn(const QListWidgetItem &item) const;
    QString pathOf(const QListWidgetItem &item) const;
    void describe();
    QString description(const Entry &entry) const;

    std::map<QString, Entry> entries;
    bool isOrderedByUser = false;
    QString chosen; ///< path; empty: automatic
    QString shown;  ///< path of the reference in use
};
