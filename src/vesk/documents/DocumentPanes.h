#pragma once

#include <QSplitter>

class DocumentTabs;
class VeskCanvas;
class VeskContext;
class ViewLock;

/// The tabs of the open documents: in one pane, or in two beside each other. Every document has a
/// tab in one of them; each pane can fetch any document of the other. The current document is the
/// one in front in the active pane; views are locked unless the user wants otherwise. GUI thread.
class DocumentPanes : public QSplitter
{
    Q_OBJECT

public:
    explicit DocumentPanes(QWidget *parent = nullptr);

    /// Into the active pane. See DocumentTabs.
    void add(VeskContext *context);
    /// A pane without documents goes.
    void remove(VeskContext *context);
    /// Its pane becomes the active one.
    void showDocument(VeskContext *context);

    bool isSideBySide() const { return count() > 1; }
    /// Puts the document after the one in front into a second pane, or all into one again. Without
    /// a second document there is no second pane.
    void setSideBySide(bool isSideBySide);
    bool areViewsLocked() const;
    void setViewsLocked(bool areLocked);

Q_SIGNALS:
    /// The user went to that document: to its tab, or to its pane.
    void documentChosen(VeskContext *context);
    void closeRequested(VeskContext *context);
    void closeOthersRequested(VeskContext *context);
    void sideBySideChanged(bool isSideBySide);

private:
    DocumentTabs *pane(int index) const;
    DocumentTabs *paneOf(const VeskContext *context) const; // null when it has no tab
    DocumentTabs *otherThan(const DocumentTabs *tabs) const;
    DocumentTabs *addPane();
    void fetch(DocumentTabs *into, VeskContext *context);
    void move(VeskContext *context, DocumentTabs *into);
    void endIfOneIsEmpty();
    void showState();

    DocumentTabs *active;
    ViewLock *lock;
};
