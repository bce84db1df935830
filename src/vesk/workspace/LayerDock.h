#pragma once

#include <QDockWidget>
#include <QPointer>

class QListWidget;
class QListWidgetItem;
class VeskContext;

/// The layers of the document in front, the uppermost first, each with its opacity and a box to
/// show or hide it. The chosen one is the document's current layer. GUI thread.
class LayerDock : public QDockWidget
{
    Q_OBJECT

public:
    explicit LayerDock(QWidget *parent = nullptr);

    /// Null for none.
    void showDocument(VeskContext *document);

private:
    void rebuild();
    void onItemChanged(const QListWidgetItem *item);
    void onRowChosen(int row);

    QListWidget *list;
    QPointer<VeskContext> shown;
};
