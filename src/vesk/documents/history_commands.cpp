#include "history_commands.h"

#include <VeskContext.h>
#include <VeskLayerBase.h>
#include <VeskLayerManager.h>

#include <QCoreApplication>

QUndoCommand *HistoryCommand::successor(const QUndoCommand *command)
{
    // The stack hands its commands out as const; this one is about to be cleared from it.
    auto *old = const_cast<HistoryCommand *>(dynamic_cast<const HistoryCommand *>(command));
    HistoryCommand *next = old->takeOver();
    next->setText(command->text());
    next->isDone = true;
    return next;
}

void HistoryCommand::redo()
{
    if (isDone)
        isDone = false;
    else
        go(true);
}

PictureCommand::PictureCommand(VeskContext &document, DocumentEdit documentEdit)
    : context(document)
    , edit(std::move(documentEdit))
{
    setText(edit.text);
}

const PictureCommand *PictureCommand::continuable(const QUndoStack &stack, const QString &kind)
{
    if (kind.isEmpty() || stack.index() == 0 || stack.index() == stack.cleanIndex())
        return nullptr;
    const auto *command = dynamic_cast<const PictureCommand *>(stack.command(stack.index() - 1));
    return command && command->edit.kind == kind ? command : nullptr;
}

bool PictureCommand::mergeWith(const QUndoCommand *later)
{
    const auto *other = dynamic_cast<const PictureCommand *>(later);
    if (!other || other->edit.kind != edit.kind)
        return false;
    edit.steps = other->edit.steps;
    edit.settings = other->edit.settings;
    setObsolete(!edit.settings.isValid());
    return true;
}

void PictureCommand::go(bool)
{
    QList<QImage> pictures = edit.pictures;
    if (pictures.isEmpty()) {
        pictures = document::takeLayerPictures(context);
        edit.steps->apply(pictures);
    }
    edit.pictures.clear(); // the document has them
    document::setLayerPictures(context, pictures);
}

HistoryCommand *PictureCommand::takeOver()
{
    return new PictureCommand(context, std::move(edit));
}

VisibilityCommand::VisibilityCommand(VeskContext &document, int index, bool toVisible)
    : context(document)
    , layer(index)
    , isVisible(toVisible)
{
    setText(toVisible ? QCoreApplication::translate("Document", "Show Layer")
                      : QCoreApplication::translate("Document", "Hide Layer"));
}

bool VisibilityCommand::mergeWith(const QUndoCommand *later)
{
    const auto *other = dynamic_cast<const VisibilityCommand *>(later);
    if (!other || other->layer != layer || other->isVisible == isVisible)
        return false;
    setObsolete(true); // there and back
    return true;
}

void VisibilityCommand::go(bool isForward)
{
    if (VeskLayerBase *shown = context.getLayerManager()->layerAt(layer))
        shown->setVisible(isForward == isVisible);
}

HistoryCommand *VisibilityCommand::takeOver()
{
    return new VisibilityCommand(context, layer, isVisible);
}
