#pragma once

#include "DocumentHistory.h"

#include <QUndoCommand>

/// A step of a document's history. It begins with its work to be done by redo(), unless it takes
/// the place of another whose work is done.
class HistoryCommand : public QUndoCommand
{
public:
    /// A command that takes over what `command` holds, which is of no use any more.
    static QUndoCommand *successor(const QUndoCommand *command);

    void undo() override { go(false); }
    void redo() override;

protected:
    HistoryCommand() = default;

    virtual void go(bool isForward) = 0;
    virtual HistoryCommand *takeOver() = 0;

private:
    bool isDone = false; // redo() is for the stack alone
};

/// Other pictures in the layers.
class PictureCommand : public HistoryCommand
{
public:
    PictureCommand(VeskContext &context, DocumentEdit edit);

    /// The latest command if it is done and of that kind, and the next would be merged with it.
    static const PictureCommand *continuable(const QUndoStack &stack, const QString &kind);

    const QVariant &settings() const { return edit.settings; }
    const std::shared_ptr<PictureSteps> &pictureSteps() const { return edit.steps; }
    /// Its steps have been applied to these: the next way is theirs.
    void makeReady(const QList<QImage> &pictures) const { edit.pictures = pictures; }
    qint64 bytes() const { return edit.steps->bytes(); }

    int id() const override
    {
        return edit.kind.isEmpty() ? -1 : int(qHash(edit.kind) & 0x7FFFFFFF);
    }
    bool mergeWith(const QUndoCommand *later) override;

protected:
    void go(bool isForward) override;
    HistoryCommand *takeOver() override;

private:
    VeskContext &context;
    mutable DocumentEdit edit; // its pictures until they are shown, its steps there and back
};

/// A layer shown or hidden.
class VisibilityCommand : public HistoryCommand
{
public:
    VisibilityCommand(VeskContext &context, int layer, bool isVisible);

    int id() const override { return layer; }
    bool mergeWith(const QUndoCommand *later) override;

protected:
    void go(bool isForward) override;
    HistoryCommand *takeOver() override;

private:
    VeskContext &context;
    const int layer;
    const bool isVisible;
};
