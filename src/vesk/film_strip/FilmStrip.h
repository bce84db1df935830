#pragma once

#include "FilmStripOrder.h"
#include "PictureFolder.h"

#include <ResultMark.h>

#include <QListView>
#include <QPersistentModelIndex>

#include <optional>

class FilmStripModel;
class FolderSurvey;
class RatingWriter;
struct FolderNotes;

/// One row of thumbnails of the current folder; several can be selected. Brackets are found beside
/// the GUI thread and drawn together: a click selects the whole bracket, another one the shot
/// alone. A double click opens a picture; Return opens those selected, or asks for the merge of a
/// bracket. GUI thread.
class FilmStrip : public QListView
{
    Q_OBJECT

public:
    explicit FilmStrip(QWidget *parent = nullptr);

    /// Shows these; those of another folder from the start, or from what select wants.
    void setPictures(const QList<FolderEntry> &pictures);
    /// Of all files, in the order shown.
    QStringList paths() const;
    /// Paths of the selected files, in the order shown.
    QStringList selectedPaths() const;
    /// Selects these files of the folder, now or as soon as the listing has them, and brings the
    /// first into view.
    void select(const QStringList &paths);

    /// Selects the bracket that stands so many brackets behind or before what is selected, as far
    /// as there are some; false when there is none.
    bool stepBracket(int distance);
    /// How many brackets are shown.
    int bracketCount() const { return int(shownBrackets().size()); }
    /// Which of them, from 1, has the first selected shot; 0 for none.
    int selectedBracket() const;

    /// Of what was merged, as far as it is known; nothing for photographs.
    std::optional<ResultMark> markOf(const QString &path) const;

    /// Gives the selected pictures that many stars, 0 to 5, here and in their XMP files.
    void rate(int stars);
    FilmStripOrder *order() const { return shown; }

    QSize sizeHint() const override;

Q_SIGNALS:
    void openRequested(const QStringList &paths);
    /// Of what is selected.
    void mergeRequested();
    void selectedPathsChanged();
    /// The brackets of the folder are known, or are none any more.
    void bracketsChanged();
    void ratingFailed(const QString &path, const QString &reason);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void selectWanted();
    void takeNotes(const FolderNotes &notes);
    QModelIndex indexOf(const QString &path) const;
    QString pathAt(const QModelIndex &index) const;
    int bracketAt(const QModelIndex &index) const;
    QList<int> shownBrackets() const;
    bool isBracketSelected() const;

    FilmStripModel *pictures;
    FilmStripOrder *shown;
    FolderSurvey *survey;
    RatingWriter *ratings;
    QString folder; // of what is shown
    QList<FolderEntry> surveyed;
    QStringList wanted; // to be selected when they are listed
    QPersistentModelIndex pressed;
};
