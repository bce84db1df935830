#pragma once

#include <QAction>
#include <QList>
#include <QObject>

class FilmStrip;
class QMenu;

/// The commands for what the film strip shows: brackets, stars, order, results. Order and results
/// are remembered. GUI thread.
class FilmStripActions : public QObject
{
    Q_OBJECT

public:
    /// strip: borrowed. The keys for stars, 0 to 5, work while it has the keyboard.
    explicit FilmStripActions(FilmStrip *strip, QObject *parent = nullptr);

    void addTo(QMenu &menu) const;
    /// Those for the strip's own menu.
    QMenu *starsMenu() const { return stars; }

    QAction *nextBracket;
    QAction *previousBracket;
    QAction *selectAll;
    QAction *hideResults;

Q_SIGNALS:
    /// In words, for the status bar.
    void said(const QString &text);

private:
    void addBrackets();
    void addStars();
    void addOrder();
    void addResults();
    void step(int distance);
    void showState();

    FilmStrip *strip;
    QMenu *stars;
    QMenu *order;
};
