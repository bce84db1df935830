#pragma once

#include <QDockWidget>
#include <QList>
#include <QPair>
#include <QPointer>
#include <QThreadPool>

class QTreeWidget;
class VeskContext;
struct Metadata;

/// What the camera says of the document in front: read beside the GUI thread, and only while the
/// dock is visible. GUI thread.
class PhotoDock : public QDockWidget
{
    Q_OBJECT

public:
    using Rows = QList<QPair<QString, QString>>;

    explicit PhotoDock(QWidget *parent = nullptr);
    ~PhotoDock() override;

    /// Null for none.
    void showDocument(VeskContext *document);
    /// What is known, in words; what is not has no row. Any thread.
    static Rows rowsOf(const Metadata &metadata);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void refresh();
    void showRows(const Rows &rows);

    QTreeWidget *list;
    QPointer<VeskContext> shown;
    QString shownSource; // file that the rows are of
    QThreadPool worker;
};
