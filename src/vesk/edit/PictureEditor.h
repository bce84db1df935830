#pragma once

#include <DocumentHistory.h>

#include <QPointer>
#include <QThreadPool>

#include <functional>
#include <memory>

class VeskContext;

/// Makes edits beside the GUI thread and adds them to the history of their document, and goes back
/// and forth in it, unless the document has changed meanwhile. One at a time. Destroying it drops
/// what is under way. GUI thread.
class PictureEditor : public QObject
{
    Q_OBJECT

public:
    /// Called with the pictures on another thread.
    using Maker = std::function<DocumentEdit(const QList<QImage> &pictures)>;

    explicit PictureEditor(QObject *parent = nullptr);
    ~PictureEditor() override;

    /// Finishes what is under way first. kind: of edits that it continues, see DocumentHistory;
    /// make gets the pictures before those.
    void start(VeskContext &document, const Maker &make, const QString &kind = {});
    /// Undoes or redoes a step of the document; where another is under way, after that.
    void step(VeskContext &document, bool isForward);
    bool isBusy() const { return bool(current); }
    bool isStepping() const { return current && current->steps; }
    bool isStepping(bool isForward) const
    {
        return isStepping() && current->isForward == isForward;
    }
    /// Waits for what is under way: for who saves, undoes or closes.
    void finish();

Q_SIGNALS:
    void started();
    /// Nothing is under way any more. isDone: the document shows the edit; otherwise it was
    /// dropped, or memory was lacking.
    void finished(bool isDone);

private:
    struct Job
    {
        QPointer<VeskContext> document;
        int revision;
        DocumentEdit edit;
        std::shared_ptr<PictureSteps> steps = {}; ///< of a step back or forth
        bool isForward = false;
    };

    std::shared_ptr<Job> begin(VeskContext &document);
    void run(const std::shared_ptr<Job> &job, const std::function<void()> &work);
    void take(std::shared_ptr<Job> job);
    static bool show(Job &job);

    QThreadPool worker; // one thread
    std::shared_ptr<Job> current;
    QList<bool> waiting; // steps, forward or not, of the document of the current one
};
