#include "ScreenColoursMenu.h"
#include "editor_settings.h"
#include "screen_colours.h"

#include <QActionGroup>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

ScreenColoursMenu::ScreenColoursMenu(QWidget *dialogWindow)
    : QMenu(tr("&Screen Colours"), dialogWindow)
    , window(dialogWindow)
    , standard(addAction(tr("&sRGB (Most Screens)")))
    , fromFile(addAction(QString()))
{
    setToolTipsVisible(true);
    auto *group = new QActionGroup(this);
    for (QAction *action : {standard, fromFile}) {
        action->setCheckable(true);
        group->addAction(action);
    }
    connect(standard, &QAction::triggered, this, [this] {
        screen_colours::setProfileFile({});
        showChoice();
    });
    connect(fromFile, &QAction::triggered, this, &ScreenColoursMenu::choose);
    showChoice();
}

void ScreenColoursMenu::choose()
{
    const QString filter = tr("Colour profiles") + QStringLiteral(" (*.icc *.icm *.ICC *.ICM);;") +
                           tr("All files") + QStringLiteral(" (*)");
    const QString before = settings::screenProfile();
    const QString folder = before.isEmpty() ? QDir::homePath() : QFileInfo(before).path();
    const QString path =
        QFileDialog::getOpenFileName(window, tr("Profile of the Screen"), folder, filter);
    if (!path.isEmpty() && !screen_colours::isScreenProfile(path))
        QMessageBox::warning(
            window, tr("Screen Colours"),
            tr("“%1” is not a colour profile for a screen.").arg(QFileInfo(path).fileName()));
    else if (!path.isEmpty())
        screen_colours::setProfileFile(path);
    showChoice();
}

void ScreenColoursMenu::showChoice()
{
    const QString path = settings::screenProfile();
    QString name = QFileInfo(path).fileName();
    fromFile->setText(
        path.isEmpty()
            ? tr("&Profile File…")
            //: %1 is a file's name.
            : tr("&Profile File: %1…").arg(name.replace(QLatin1Char('&'), QLatin1String("&&"))));
    fromFile->setToolTip(QDir::toNativeSeparators(path));
    (path.isEmpty() ? standard : fromFile)->setChecked(true);
}
