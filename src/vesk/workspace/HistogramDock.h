#pragma once

#include <VeskCanvas.h>

#include <QDockWidget>
#include <QPointer>
#include <QThreadPool>
#include <QTimer>

class HistogramView;
class VeskContext;

/// The histogram of the document in front. Whether it is shown is the editor's setting that tools
/// ask for. Counting happens beside the GUI thread, and only while the dock is visible. GUI thread.
class HistogramDock : public QDockWidget
{
    Q_OBJECT

public:
    explicit HistogramDock(QWidget *parent = nullptr);
    ~HistogramDock() override;

    /// Null for none.
    void showDocument(VeskContext *document);
    const HistogramView &view() const { return *histogram; }

protected:
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void refreshSoon();
    void refresh();
    void takeFromCanvas();
    void addViewActions();

    HistogramView *histogram;
    QPointer<VeskContext> shown;
    QPointer<VeskCanvas> canvas;
    QTimer delay; // folds bursts of changes into one count
    QThreadPool worker;
    int round = 0; // answers for an earlier one are stale
};
