#pragma once

#include <QObject>
#include <QPointer>
#include <QUndoGroup>

class AdjustDock;
class CanvasOverlay;
class DocumentArea;
class PictureEditor;
class QAction;
class QMainWindow;
class QMenu;
class VeskContext;

/// The Edit menu: undo and redo, copy and paste, crop, rotate, straighten, adjust. GUI thread.
class EditMenu : public QObject
{
    Q_OBJECT

public:
    /// documents: borrowed. The adjustments' dock becomes the window's.
    EditMenu(DocumentArea *documents, QMainWindow *window);

    QMenu *menu() const { return editMenu; }
    AdjustDock *adjustDock() const { return dock; }
    /// Null for none.
    void showDocument(VeskContext *document);
    /// What is under way comes to its end, so that the document is what is seen: before it is saved
    /// or closed.
    void settle();

    QAction *undo;
    QAction *redo;
    QAction *copy;
    QAction *paste;
    QAction *adjust;
    QAction *crop;
    QAction *straighten;
    QAction *rotateLeft;
    QAction *rotateRight;

Q_SIGNALS:
    /// Files that were copied elsewhere.
    void pathsPasted(const QStringList &paths);

private:
    QAction *add(const QString &text, const QList<QKeySequence> &keys, const char *name);
    void fillMenu();
    void updateSteps();
    void step(bool isForward);
    void copyPicture();
    void pastePicture();
    void startCrop();
    void startStraighten();
    void turn(int quarters);
    void lay(CanvasOverlay *newOverlay);
    void endOverlay();
    void updatePaste();
    QList<QAction *> documentActions() const;

    DocumentArea *documents;
    QMenu *editMenu;
    PictureEditor *editor;
    AdjustDock *dock;
    QUndoGroup group;
    QPointer<VeskContext> shown;
    QPointer<CanvasOverlay> overlay;
};
