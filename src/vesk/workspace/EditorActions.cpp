#include "EditorActions.h"

#include <VeskActionManager.h>

#include <QIcon>
#include <QRegularExpression>

namespace {

/// An empty name gives no icon.
QIcon icon(const char *name)
{
    if (!*name)
        return {};
    return QIcon(QStringLiteral(":/vesk/icons/%1.svg").arg(QLatin1String(name)));
}

/// The text of a command without the letter that opens it, which East Asian menus append.
QString withoutMnemonic(QString text)
{
    static const QRegularExpression appended(QStringLiteral("\\(&\\w\\)"));
    return text.remove(appended).remove(QLatin1Char('&'));
}

/// What a button of the action says, and its tip.
void nameButton(QAction *action)
{
    const QString name = withoutMnemonic(action->text());
    const QString keys = action->shortcut().toString(QKeySequence::NativeText);
    action->setIconText(name);
    //: The tip of a button: the command, and the keys that do the same.
    action->setToolTip(keys.isEmpty() ? name : EditorActions::tr("%1 (%2)").arg(name, keys));
}

QAction *standard(int id)
{
    return VeskActionManager::getInstance({})->getAction(id);
}

} // namespace

EditorActions::EditorActions(QObject *parent)
    : QObject(parent)
{
    const auto add = [this](const QString &text, const QList<QKeySequence> &keys,
                            const char *name) {
        auto *action = new QAction(icon(name), text, this);
        action->setShortcuts(keys);
        nameButton(action);
        return action;
    };
    const auto keysFor = [](QKeySequence::StandardKey key) {
        return QKeySequence::keyBindings(key);
    };
    const QList<QKeySequence> noKeys;

    open = add(tr("&Open…"), keysFor(QKeySequence::Open), "open");
    openFolder = add(tr("Open &Folder…"), {Qt::CTRL | Qt::SHIFT | Qt::Key_O}, "folder");
    save = standard(VeskActionManager::SaveAction);
    save->setIcon(icon("save"));
    nameButton(save);
    saveAs = standard(VeskActionManager::SaveAsAction);
    if (saveAs->shortcuts().isEmpty()) // plain X11 has no keys for it
        saveAs->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_S);
    close = standard(VeskActionManager::CloseAction);
    quit = add(tr("&Quit"), keysFor(QKeySequence::Quit), "");
    quit->setMenuRole(QAction::QuitRole);

    zoomIn = add(tr("Zoom &In"),
                 keysFor(QKeySequence::ZoomIn) + QList<QKeySequence>{Qt::CTRL | Qt::Key_Equal},
                 "zoom-in");
    zoomOut = add(tr("Zoom &Out"), keysFor(QKeySequence::ZoomOut), "zoom-out");
    zoomToFit = add(tr("&Fit to Window"), {Qt::CTRL | Qt::Key_0}, "zoom-fit");
    zoomToActualSize = add(tr("&Actual Size (100 %)"), {Qt::CTRL | Qt::Key_1}, "zoom-actual");
    zoomToFit->setIconText(tr("Fit"));
    //: On a button: one pixel of the picture on one of the screen.
    zoomToActualSize->setIconText(tr("100 %"));
    QList<QKeySequence> fullScreenKeys = keysFor(QKeySequence::FullScreen);
    fullScreenKeys.removeAll(Qt::Key_F11);
    fullScreenKeys.prepend(Qt::Key_F11); // not every desktop has keys for it
    fullScreen = add(tr("F&ull Screen"), fullScreenKeys, "");
    fullScreen->setCheckable(true);
    nextTab = add(tr("&Next Document"), keysFor(QKeySequence::NextChild), "");
    previousTab = add(tr("&Previous Document"), keysFor(QKeySequence::PreviousChild), "");

    mergeExposures = add(tr("Merge &Exposures…"), {Qt::CTRL | Qt::Key_M}, "merge-exposures");
    mergeExposures->setToolTip(
        tr("Align the selected shots and fuse them: preview, options, a new document"));
    mergeBrackets = add(tr("Merge &Brackets…"), {Qt::CTRL | Qt::SHIFT | Qt::Key_M}, "");
    mergeBrackets->setToolTip(tr("Find the brackets of a folder and merge them all, as Merge "
                                 "Exposures does"));
    merge = add(tr("&Merge to HDR…"), {Qt::CTRL | Qt::SHIFT | Qt::Key_H}, "merge");
    merge->setToolTip(
        tr("Merge up to five shots by their weighted mean, in place of the document"));
    about = add(tr("&About Vesk"), noKeys, "");
    about->setMenuRole(QAction::AboutRole);
    openSelected = add(tr("Open"), noKeys, "open");
    setDocumentState(false, false);
}

void EditorActions::setDocumentState(bool isOpen, bool isModified)
{
    save->setEnabled(isOpen && isModified);
    for (QAction *action :
         {saveAs, close, zoomIn, zoomOut, zoomToFit, zoomToActualSize, nextTab, previousTab})
        action->setEnabled(isOpen);
}
