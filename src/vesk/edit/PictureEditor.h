#pragma once

#include "step_preview.h"

#include <DocumentHistory.h>

#include <QPointer>
#include <QThreadPool>

#include <functional>
#include <memory>

class VeskContext;

/// Makes edits beside the GUI thread and adds them to the history of their document, and goes back
/// and forth in it, unless the document has changed meanwhile. What takes time is shown by the
/// canvas first, at the size of the screen. One at a time. Destroying it drops what is under way.
/// GUI thread.
class PictureEditor : public QObject
{
    Q_OBJECT

public:
    /// Called with the pictures on another thread.
    using Maker = std::function<DocumentEdit(const QList<QImage> &pictures)>;

    explicit PictureEditor(QObject *parent = nullptr);
    ~PictureEditor() override;

    /// Does that when nothing is under way: now, or as soon as what was asked for before it is
    /// done; not at all if that fails or the document goes.
    void whenFree(VeskContext &document, const std::function<void()> &deed);
    /// Makes an edit that is still to be made. As the other two, finishes first what is under way.
    void start(VeskContext &document, DocumentEdit edit);
    /// The same of an edit with a preview of its own. kind: of edits that it continues, see
    /// DocumentHistory; make gets the pictures before those.
    void start(VeskContext &document, const Maker &make, const QString &kind);
    /// Undoes or redoes a step of the document.
    void step(VeskContext &document, bool isForward);
    bool isBusy() const { return bool(current); }
    bool isStepping() const { return current && current->direction != Direction::New; }
    bool isStepping(bool isForward) const
    {
        return current && current->direction == (isForward ? Direction::Forth : Direction::Back);
    }
    /// Waits for all that is under way or asked for: for who saves or closes.
    void finish();

Q_SIGNALS:
    void started();
    /// Something has come to its end; what was asked for after it may be under way by now. isDone:
    /// the document shows the edit; otherwise it was dropped, or memory was lacking.
    void finished(bool isDone);

private:
    enum class Direction {
        New, ///< no step of the history yet
        Back,
        Forth
    };

    struct Job
    {
        QPointer<VeskContext> document;
        int revision;
        Direction direction;
        DocumentEdit edit;
        step_preview::Document before = {};
        bool isPreviewed = false;
    };

    std::shared_ptr<Job> begin(VeskContext &document, Direction direction, DocumentEdit edit);
    void runSteps(const std::shared_ptr<Job> &job);
    void run(const std::shared_ptr<Job> &job, const std::function<void()> &work);
    void preview(const std::shared_ptr<Job> &job);
    void take(std::shared_ptr<Job> job);
    static bool show(Job &job);
    void goOn();

    QThreadPool worker; // one thread
    std::shared_ptr<Job> current;
    QList<std::function<void()>> waiting;
};
