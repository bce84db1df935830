#include "EditMenu.h"
#include "AdjustDock.h"

#include <CropTool.h>
#include <DocumentArea.h>
#include <DocumentHistory.h>
#include <PictureEditor.h>
#include <StraightenTool.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskSelection.h>
#include <adjust.h>
#include <layer_composition.h>
#include <picture_document.h>
#include <picture_edits.h>

#include <QApplication>
#include <QClipboard>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>
#include <QUrl>

EditMenu::EditMenu(DocumentArea *area, QMainWindow *window)
    : QObject(window)
    , documents(area)
    , editMenu(new QMenu(tr("&Edit"), window))
    , editor(new PictureEditor(this))
    , dock(new AdjustDock(editor, window))
{
    undo = add(tr("&Undo"), QKeySequence::keyBindings(QKeySequence::Undo), "undoAction");
    redo = add(tr("&Redo"), QKeySequence::keyBindings(QKeySequence::Redo), "redoAction");
    copy = add(tr("&Copy"), QKeySequence::keyBindings(QKeySequence::Copy), "copyAction");
    paste = add(tr("&Paste as Document"), QKeySequence::keyBindings(QKeySequence::Paste),
                "pasteAction");
    crop = add(tr("Cr&op…"), {Qt::CTRL | Qt::SHIFT | Qt::Key_X}, "cropAction");
    straighten = add(tr("&Straighten…"), {Qt::CTRL | Qt::SHIFT | Qt::Key_L}, "straightenAction");
    rotateLeft = add(tr("Rotate &Left"), {Qt::CTRL | Qt::Key_L}, "rotateLeftAction");
    rotateRight = add(tr("Rotate Ri&ght"), {Qt::CTRL | Qt::Key_R}, "rotateRightAction");
    adjust = dock->toggleViewAction();
    adjust->setShortcut(Qt::CTRL | Qt::Key_J);
    fillMenu();
    connect(undo, &QAction::triggered, this, [this] { step(false); });
    connect(redo, &QAction::triggered, this, [this] { step(true); });
    connect(copy, &QAction::triggered, this, &EditMenu::copyPicture);
    connect(paste, &QAction::triggered, this, &EditMenu::pastePicture);
    connect(crop, &QAction::triggered, this, &EditMenu::startCrop);
    connect(straighten, &QAction::triggered, this, &EditMenu::startStraighten);
    connect(rotateLeft, &QAction::triggered, this, [this] { turn(3); });
    connect(rotateRight, &QAction::triggered, this, [this] { turn(1); });
    connect(&group, &QUndoGroup::canUndoChanged, this, &EditMenu::updateSteps);
    connect(&group, &QUndoGroup::canRedoChanged, this, &EditMenu::updateSteps);
    connect(editor, &PictureEditor::started, this, &EditMenu::updateSteps);
    connect(editor, &PictureEditor::finished, this, &EditMenu::updateSteps);
    connect(dock, &AdjustDock::pendingChanged, this, &EditMenu::updateSteps);
    //: %1 is what the user did last, such as "Crop".
    connect(&group, &QUndoGroup::undoTextChanged, this, [this](const QString &what) {
        undo->setText(what.isEmpty() ? tr("&Undo") : tr("&Undo: %1").arg(what));
    });
    connect(&group, &QUndoGroup::redoTextChanged, this, [this](const QString &what) {
        redo->setText(what.isEmpty() ? tr("&Redo") : tr("&Redo: %1").arg(what));
    });
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, &EditMenu::updatePaste);
    showDocument(nullptr);
}

QAction *EditMenu::add(const QString &text, const QList<QKeySequence> &keys, const char *name)
{
    auto *action = new QAction(text, this);
    action->setShortcuts(keys);
    action->setObjectName(QLatin1String(name));
    return action;
}

void EditMenu::fillMenu()
{
    editMenu->addActions({undo, redo});
    editMenu->addSeparator();
    editMenu->addActions({copy, paste});
    editMenu->addSeparator();
    editMenu->addActions({adjust, crop, straighten, rotateLeft, rotateRight});
    connect(editMenu, &QMenu::aboutToShow, this, &EditMenu::updatePaste);
}

QList<QAction *> EditMenu::documentActions() const
{
    return {copy, crop, straighten, rotateLeft, rotateRight};
}

void EditMenu::showDocument(VeskContext *document)
{
    endOverlay();
    shown = document;
    QUndoStack *stack = document ? &DocumentHistory::of(*document).stack() : nullptr;
    if (stack && !group.stacks().contains(stack))
        group.addStack(stack);
    group.setActiveStack(stack);
    updateSteps();
    for (QAction *action : documentActions())
        action->setEnabled(document);
    dock->showDocument(document);
    updatePaste();
}

/// What is still being made can be taken back, or done again, by the next key press.
void EditMenu::updateSteps()
{
    const bool isEditing = dock->isPending() || (editor->isBusy() && !editor->isStepping());
    undo->setEnabled(group.canUndo() || isEditing || editor->isStepping(true));
    redo->setEnabled(group.canRedo() || editor->isStepping(false));
}

/// Pressed again and again, the steps follow one another beside the GUI thread.
void EditMenu::step(bool isForward)
{
    if (!shown)
        return;
    dock->commit();
    editor->whenFree(*shown,
                     [this, document = shown, isForward] { editor->step(*document, isForward); });
}

void EditMenu::settle()
{
    dock->settle();
}

// --- The clipboard ---

/// The selection, or all.
void EditMenu::copyPicture()
{
    settle();
    const QImage picture = composition::composedPicture(shown);
    if (picture.isNull())
        return;
    const VeskSelection *selection = shown->getSelection();
    const bool isPart = selection && !selection->isEmpty();
    QApplication::clipboard()->setImage(isPart ? picture.copy(selection->getRect()) : picture);
}

void EditMenu::pastePicture()
{
    const QMimeData *data = QApplication::clipboard()->mimeData();
    QStringList paths;
    const QList<QUrl> urls = data->urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    const QImage picture = QApplication::clipboard()->image();
    if (!paths.isEmpty())
        Q_EMIT pathsPasted(paths);
    else if (!picture.isNull())
        documents
            ->open(picture.convertToFormat(exposure::adjustableFormat(picture)),
                   //: The name of a document from the clipboard.
                   tr("Pasted Picture"), {})
            ->setSaveAble(true);
}

void EditMenu::updatePaste()
{
    const QMimeData *data = QApplication::clipboard()->mimeData();
    paste->setEnabled(data && (data->hasImage() || data->hasUrls()));
}

// --- Edits ---

void EditMenu::turn(int quarters)
{
    endOverlay();
    dock->commit();
    editor->whenFree(*shown, [this, document = shown, quarters] {
        editor->start(*document, edits::turn(document::layerPictures(*document), quarters));
    });
}

void EditMenu::startCrop()
{
    VeskCanvas *canvas = documents->currentCanvas();
    if (!canvas)
        return;
    settle();
    const VeskSelection *selection = shown->getSelection();
    auto *tool = new CropTool(canvas, selection ? selection->getRect() : QRect(),
                              document::coveredArea(*shown));
    connect(tool, &CropTool::accepted, this, [this](const QRect &area) {
        endOverlay();
        const QList<QImage> pictures = document::layerPictures(*shown);
        if (!area.isEmpty() && area != pictures.value(0).rect())
            editor->start(*shown, edits::crop(pictures, area));
    });
    lay(tool);
}

void EditMenu::startStraighten()
{
    VeskCanvas *canvas = documents->currentCanvas();
    if (!canvas)
        return;
    settle();
    auto *tool = new StraightenTool(canvas);
    connect(tool, &StraightenTool::accepted, this, [this](double degrees) {
        endOverlay();
        editor->start(*shown, edits::straighten(document::layerPictures(*shown), degrees));
    });
    lay(tool);
}

void EditMenu::lay(CanvasOverlay *newOverlay)
{
    endOverlay();
    overlay = newOverlay;
    connect(newOverlay, &CanvasOverlay::cancelled, this, &EditMenu::endOverlay);
    newOverlay->show();
    newOverlay->raise();
    newOverlay->setFocus();
}

/// Later, as it may be the one that tells.
void EditMenu::endOverlay()
{
    if (!overlay)
        return;
    overlay->hide();
    overlay->deleteLater();
    overlay = nullptr;
    if (VeskCanvas *canvas = documents->currentCanvas())
        canvas->setFocus();
}
