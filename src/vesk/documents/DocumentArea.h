#pragma once

#include <QPointer>
#include <QStackedWidget>

class DocumentPanes;
class VeskCanvas;
class VeskContext;

/// The middle of the window: the tabs of the open documents, or the start page while there is none.
///
/// It follows the context manager, so documents that a tool opens or takes away come and go here as
/// well. Tools work on a current document: while none is open, an empty one without a tab is
/// current, which a tool may replace. Destroying the area closes all documents without asking. One
/// at a time. GUI thread.
class DocumentArea : public QStackedWidget
{
    Q_OBJECT

public:
    /// startPage: becomes the area's.
    explicit DocumentArea(QWidget *startPage, QWidget *parent = nullptr);
    ~DocumentArea() override;

    /// Opens picture as a new document, in front.
    VeskContext *open(const QImage &picture, const QString &name, const QString &path);
    /// Closes document without asking.
    void close(VeskContext *document);
    void makeCurrent(VeskContext *document);
    /// The user agrees that a tool replaces document with its unsaved changes; null takes that
    /// back. The document keeps them until then. Saving it takes it back, too.
    void allowReplacing(VeskContext *document);

    /// Null while the start page is shown.
    VeskContext *currentDocument() const;
    VeskCanvas *currentCanvas() const;
    /// The documents that have a tab, in the order of opening.
    QList<VeskContext *> documents() const;
    /// The document of that file, null when it is not open.
    VeskContext *documentOf(const QString &path) const;

    /// Where the documents stand: in one pane, or in two.
    DocumentPanes *panes() const { return tabs; }

Q_SIGNALS:
    /// Another document is in front, or the one in front has another canvas. Null for none.
    void currentDocumentChanged(VeskContext *document);
    /// Name, file or modified flag of a document.
    void documentStateChanged(VeskContext *document);
    void closeRequested(VeskContext *document);
    void closeOthersRequested(VeskContext *document);

private:
    void addBlank();
    void onAdded(VeskContext *context);
    void onRemoved(VeskContext *context);
    void onCurrentChanged();
    void keepReplacedWork(VeskContext *context);
    void giveCanvasIfNone(VeskContext *context);

    DocumentPanes *tabs;
    QPointer<VeskContext> blank;
    QPointer<VeskContext> closing;
    QPointer<VeskContext> expendable; // may be replaced with its unsaved changes
};
