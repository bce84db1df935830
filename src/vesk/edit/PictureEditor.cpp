#include "PictureEditor.h"

#include <VeskContext.h>

#include <new>

PictureEditor::PictureEditor(QObject *parent)
    : QObject(parent)
{
    worker.setMaxThreadCount(1);
}

PictureEditor::~PictureEditor()
{
    worker.waitForDone();
}

void PictureEditor::start(VeskContext &document, const QList<QImage> &pictures, const Maker &make)
{
    finish();
    const auto job = std::make_shared<Job>();
    job->document = &document;
    job->revision = DocumentHistory::of(document).revision();
    current = job;
    Q_EMIT started();
    worker.start([this, job, pictures, make] {
        try {
            job->edit = make(pictures);
        } catch (const std::bad_alloc &) {
            job->edit = {};
        }
        QMetaObject::invokeMethod(
            this, [this, job] { take(job); }, Qt::QueuedConnection);
    });
}

void PictureEditor::finish()
{
    worker.waitForDone();
    if (current)
        take(current);
}

/// job: a copy, as the first step is to let go of it.
void PictureEditor::take(std::shared_ptr<Job> job)
{
    if (job != current)
        return; // taken already
    current.reset();
    const bool isWanted = job->document && !job->edit.pictures.isEmpty() &&
                          DocumentHistory::of(*job->document).revision() == job->revision;
    if (isWanted)
        DocumentHistory::of(*job->document).add(std::move(job->edit));
    Q_EMIT finished(isWanted);
}
