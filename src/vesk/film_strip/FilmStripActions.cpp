#include "FilmStripActions.h"
#include "FilmStrip.h"

#include <editor_settings.h>
#include <picture_rating.h>

#include <QActionGroup>
#include <QFileInfo>
#include <QMenu>

FilmStripActions::FilmStripActions(FilmStrip *filmStrip, QObject *parent)
    : QObject(parent)
    , nextBracket(new QAction(tr("&Next Bracket"), this))
    , previousBracket(new QAction(tr("&Previous Bracket"), this))
    , selectAll(new QAction(tr("Select &All Pictures"), this))
    , hideResults(new QAction(tr("&Hide Merged Results"), this))
    , strip(filmStrip)
    , stars(new QMenu(tr("&Rating"), filmStrip))
    , order(new QMenu(tr("&Sort By"), filmStrip))
{
    addBrackets();
    addStars();
    addOrder();
    addResults();
    connect(strip, &FilmStrip::selectedPathsChanged, this, &FilmStripActions::showState);
    connect(strip, &FilmStrip::bracketsChanged, this, &FilmStripActions::showState);
    connect(strip, &FilmStrip::ratingFailed, this, [this](const QString &path, const QString &why) {
        //: %1 is the name of a picture, %2 the reason.
        Q_EMIT said(
            tr("The rating of “%1” could not be saved: %2.").arg(QFileInfo(path).fileName(), why));
    });
    showState();
}

void FilmStripActions::addTo(QMenu &menu) const
{
    menu.addActions({nextBracket, previousBracket, selectAll});
    menu.addSeparator();
    menu.addMenu(stars);
    menu.addMenu(order);
    menu.addAction(hideResults);
}

void FilmStripActions::addBrackets()
{
    nextBracket->setShortcut(Qt::CTRL | Qt::Key_B);
    previousBracket->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_B);
    selectAll->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_A);
    connect(nextBracket, &QAction::triggered, this, [this] { step(1); });
    connect(previousBracket, &QAction::triggered, this, [this] { step(-1); });
    connect(selectAll, &QAction::triggered, strip, [this] {
        strip->setFocus();
        strip->selectAll();
    });
}

void FilmStripActions::addStars()
{
    for (int count = 0; count <= rating::kMost; ++count) {
        const QString text =
            count == 0 ? tr("No Stars") : QString(count, QChar(0x2605)); // black star
        QAction *action = stars->addAction(text);
        action->setShortcut(QKeySequence(Qt::Key_0 + count));
        action->setShortcutContext(Qt::WidgetShortcut);
        strip->addAction(action);
        connect(action, &QAction::triggered, strip, [this, count] { strip->rate(count); });
    }
}

void FilmStripActions::addOrder()
{
    auto *group = new QActionGroup(this);
    const auto add = [&](const QString &text, FilmStripOrder::Key key) {
        QAction *action = order->addAction(text);
        action->setCheckable(true);
        action->setActionGroup(group);
        action->setChecked(settings::filmStripOrder() == int(key));
        if (action->isChecked())
            strip->order()->setKey(key);
        connect(action, &QAction::triggered, strip, [this, key] {
            strip->order()->setKey(key);
            settings::setFilmStripOrder(int(key));
        });
    };
    add(tr("&Name"), FilmStripOrder::Key::Name);
    add(tr("&Time Taken"), FilmStripOrder::Key::Time);
    add(tr("&Rating"), FilmStripOrder::Key::Rating);
}

void FilmStripActions::addResults()
{
    hideResults->setCheckable(true);
    hideResults->setChecked(settings::areResultsHidden());
    strip->order()->setResultsHidden(hideResults->isChecked());
    connect(hideResults, &QAction::toggled, strip, [this](bool areHidden) {
        strip->order()->setResultsHidden(areHidden);
        settings::setResultsHidden(areHidden);
    });
}

void FilmStripActions::step(int distance)
{
    if (!strip->stepBracket(distance)) {
        Q_EMIT said(tr("There is no further bracket in this folder."));
        return;
    }
    strip->setFocus();
    Q_EMIT said(tr("Bracket %1 of %2").arg(strip->selectedBracket()).arg(strip->bracketCount()));
}

void FilmStripActions::showState()
{
    const bool hasBrackets = strip->bracketCount() > 0;
    nextBracket->setEnabled(hasBrackets);
    previousBracket->setEnabled(hasBrackets);
    stars->setEnabled(!strip->selectedPaths().isEmpty());
}
