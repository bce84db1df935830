#pragma once

#include <Look.h>

#include <QDockWidget>
#include <QPointer>
#include <QThreadPool>
#include <QTimer>

#include <utility>
#include <vector>

class LookPreview;
class LookSlider;
class PictureEditor;
class QPushButton;
class VeskContext;

/// The look of the document in front: shown on the canvas while a control moves, and given to the
/// document, at its size and depth, soon after it rests. Looks that follow one another are one step
/// of the history. GUI thread.
class AdjustDock : public QDockWidget
{
    Q_OBJECT

public:
    /// editor: borrowed.
    explicit AdjustDock(PictureEditor *editor, QWidget *parent = nullptr);
    ~AdjustDock() override;

    /// Null for none.
    void showDocument(VeskContext *document);
    /// Lets the document have what is still shown only, and drops a proposal that is under way.
    void commit();
    /// The same, and waits for it: for who saves or closes.
    void settle();
    exposure::Look look() const;
    void setLook(const exposure::Look &look);
    LookPreview *preview() const;
    /// The document does not have what is shown yet, nor has its making begun.
    bool isPending() const { return hasChange; }

Q_SIGNALS:
    void pendingChanged();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QWidget *makePanel();
    void addSlider(class QFormLayout &form, const QString &text, const char *name, double least,
                   double most, double exposure::Look::*member);
    void onChanged();
    void setPending(bool isPendingNow);
    void onEdited();
    void onDocumentChanged();
    void apply();
    void showLook();
    void showAfter();
    void propose();
    void readLook();
    void nameSource();
    void prepareSoon();

    PictureEditor *editor;
    QPointer<VeskContext> shown;
    QPointer<LookPreview> lookPreview;
    QPushButton *compare; // see the picture without the look
    std::vector<std::pair<LookSlider *, double exposure::Look::*>> sliders;
    QTimer rest;          // the control rests
    QTimer getReady;      // folds bursts of changes of the document
    QThreadPool proposer; // one thread
    int proposals = 0;    // answers for an earlier one are stale
    bool isSourceKnown = false;
    bool hasChange = false;
    bool isReading = false;
};
