#pragma once

#include <QListView>

class FilmStripModel;
struct FolderEntry;

/// One row of thumbnails of the current folder; several can be selected. Double click or Return
/// opens them. GUI thread.
class FilmStrip : public QListView
{
    Q_OBJECT

public:
    explicit FilmStrip(QWidget *parent = nullptr);

    /// Shows these; those of another folder from the start, or from what select wants.
    void setPictures(const QList<FolderEntry> &pictures);
    /// Paths of the selected files, in the order shown.
    QStringList selectedPaths() const;
    /// Selects these files of the folder, now or as soon as the listing has them, and brings the
    /// first into view.
    void select(const QStringList &paths);

    QSize sizeHint() const override;

Q_SIGNALS:
    void openRequested(const QStringList &paths);
    void selectedPathsChanged();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void selectWanted();

    FilmStripModel *pictures;
    QString folder;     // of what is shown
    QStringList wanted; // to be selected when they are listed
};
