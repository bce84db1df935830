#include "PictureEditor.h"

#include <VeskContext.h>

#include <new>
#include <utility>

PictureEditor::PictureEditor(QObject *parent)
    : QObject(parent)
{
    worker.setMaxThreadCount(1);
}

PictureEditor::~PictureEditor()
{
    worker.waitForDone();
}

std::shared_ptr<PictureEditor::Job> PictureEditor::begin(VeskContext &document)
{
    current = std::make_shared<Job>();
    current->document = &document;
    current->revision = DocumentHistory::of(document).revision();
    return current;
}

void PictureEditor::run(const std::shared_ptr<Job> &job, const std::function<void()> &work)
{
    Q_EMIT started();
    worker.start([this, job, work] {
        work();
        QMetaObject::invokeMethod(
            this, [this, job] { take(job); }, Qt::QueuedConnection);
    });
}

void PictureEditor::start(VeskContext &document, const Maker &make, const QString &kind)
{
    finish();
    const auto pictures = DocumentHistory::of(document).picturesToContinue(kind);
    const auto job = begin(document);
    run(job, [job, pictures, make] {
        try {
            job->edit = make(pictures());
        } catch (const std::bad_alloc &) {
            job->edit = {};
        }
    });
}

void PictureEditor::step(VeskContext &document, bool isForward)
{
    if (isStepping() && current->document == &document) {
        waiting.append(isForward);
        return;
    }
    finish();
    DocumentHistory &history = DocumentHistory::of(document);
    const auto ahead = history.stepAhead(isForward);
    if (!ahead) {
        history.step(isForward);
        return;
    }
    const auto job = begin(document);
    job->steps = ahead->steps;
    job->edit.pictures = ahead->pictures;
    job->isForward = isForward;
    run(job, [job] { job->steps->apply(job->edit.pictures); });
}

void PictureEditor::finish()
{
    while (current) { // steps that wait come to be current
        worker.waitForDone();
        take(current);
    }
}

/// job: a copy, as the first step is to let go of it.
void PictureEditor::take(std::shared_ptr<Job> job)
{
    if (job != current)
        return; // taken already
    current.reset();
    const bool isShown = show(*job);
    const QList<bool> next = std::exchange(waiting, {});
    for (const bool isForward : next) { // all but the first wait again
        if (job->document)
            step(*job->document, isForward);
    }
    Q_EMIT finished(isShown);
}

/// False when the document has changed, or memory was lacking.
bool PictureEditor::show(Job &job)
{
    const bool isWanted = job.document && !job.edit.pictures.isEmpty() &&
                          DocumentHistory::of(*job.document).revision() == job.revision;
    if (isWanted && job.steps)
        DocumentHistory::of(*job.document).step(job.isForward, job.edit.pictures);
    else if (isWanted)
        DocumentHistory::of(*job.document).add(std::move(job.edit));
    else if (job.steps)
        job.steps->apply(job.edit.pictures); // they lead where they led before
    return isWanted;
}
