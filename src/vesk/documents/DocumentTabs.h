#pragma once

#include <QPointer>
#include <QTabWidget>

class DocumentPage;
class DocumentTabBar;
class QMenu;
class QToolButton;
class VeskCanvas;
class VeskContext;

/// One tab per document, with its name and a mark for unsaved changes. Where the names do not fit,
/// what they have in common is cut; a button beside the tabs lists the whole names. A document that
/// takes over the canvas of one that has just gone also takes over its place. GUI thread.
class DocumentTabs : public QTabWidget
{
    Q_OBJECT

public:
    explicit DocumentTabs(QWidget *parent = nullptr);

    /// context is borrowed; without a canvas its tab stays empty until it gets one.
    void add(VeskContext *context);
    /// The tab's page, and a canvas that is still in it, go when control returns to the event loop:
    /// until then another document may take the canvas over.
    void remove(VeskContext *context);
    void showDocument(VeskContext *context);

    QList<VeskContext *> documents() const;
    /// Null without documents, or without a canvas.
    VeskContext *frontDocument() const;
    VeskCanvas *frontCanvas() const;
    /// Tabs whose documents the list offers, too; null for none.
    void setNeighbour(DocumentTabs *tabs);
    /// Marks the tab in front as that of the current document.
    void setMarked(bool isMarked);

Q_SIGNALS:
    /// The user went to the tab of that document.
    void documentChosen(VeskContext *context);
    void closeRequested(VeskContext *context);
    void closeOthersRequested(VeskContext *context);
    /// The user wants to see a document of the neighbour here.
    void fetchRequested(VeskContext *context);
    /// A page has got a canvas.
    void canvasHeld();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    DocumentPage *pageAt(int index) const;
    int indexOf(const VeskContext *context) const; // -1 when it has no tab
    QString nameAt(int index) const;
    void moveCanvas(VeskContext *context);
    void labelTabs();
    void showList();
    void showListButton();
    void addToList(const DocumentTabs *tabs, int index);

    DocumentTabBar *bar;
    QToolButton *listButton;
    QMenu *list;           // of all documents, below its button
    int vacatedIndex = -1; // of the tab removed last
    QPointer<QWidget> vacatedPage;
    QPointer<DocumentTabs> neighbour;
};
