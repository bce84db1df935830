#pragma once

#include <DocumentHistory.h>

#include <QPointer>
#include <QThreadPool>

#include <functional>
#include <memory>

class VeskContext;

/// Makes edits beside the GUI thread and adds them to the history of their document, unless that
/// has changed meanwhile. One at a time. Destroying it drops what is under way. GUI thread.
class PictureEditor : public QObject
{
    Q_OBJECT

public:
    /// Called with the pictures on another thread.
    using Maker = std::function<DocumentEdit(const QList<QImage> &pictures)>;

    explicit PictureEditor(QObject *parent = nullptr);
    ~PictureEditor() override;

    /// Finishes what is under way first.
    void start(VeskContext &document, const QList<QImage> &pictures, const Maker &make);
    bool isBusy() const { return bool(current); }
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
    };

    void take(std::shared_ptr<Job> job);

    QThreadPool worker; // one thread
    std::shared_ptr<Job> current;
};
