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

std::shared_ptr<PictureEditor::Job> PictureEditor::begin(VeskContext &document, Direction direction,
                                                         DocumentEdit edit)
{
    current = std::make_shared<Job>(
        Job{&document, DocumentHistory::of(document).revision(), direction, std::move(edit)});
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

void PictureEditor::whenFree(VeskContext &document, const std::function<void()> &deed)
{
    waiting.append([deed, wanted = QPointer<VeskContext>(&document)] {
        if (wanted)
            deed();
    });
    goOn();
}

void PictureEditor::goOn()
{
    while (!current && !waiting.isEmpty())
        waiting.takeFirst()();
}

void PictureEditor::start(VeskContext &document, DocumentEdit edit)
{
    finish();
    runSteps(begin(document, Direction::New, std::move(edit)));
}

void PictureEditor::start(VeskContext &document, const Maker &make, const QString &kind)
{
    finish();
    const auto pictures = DocumentHistory::of(document).picturesToContinue(kind);
    const auto job = begin(document, Direction::New, {});
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
    finish();
    DocumentEdit edit;
    edit.steps = DocumentHistory::of(document).stepAhead(isForward);
    if (edit.steps)
        runSteps(begin(document, isForward ? Direction::Forth : Direction::Back, edit));
    else
        DocumentHistory::of(document).step(isForward);
}

void PictureEditor::runSteps(const std::shared_ptr<Job> &job)
{
    job->before = step_preview::before(*job->document, *job->edit.steps);
    run(job, [this, job] {
        preview(job);
        try {
            QList<QImage> pictures = std::exchange(job->before, {}).pictures;
            if (job->edit.steps->apply(pictures))
                job->edit.pictures = pictures;
        } catch (const std::bad_alloc &) { // the document stays as it is
        }
    });
}

/// On the worker.
void PictureEditor::preview(const std::shared_ptr<Job> &job)
{
    if (job->before.sight.pixels.isEmpty())
        return;
    VeskCanvas::Preview made;
    try {
        made = step_preview::after(job->before, *job->edit.steps);
    } catch (const std::bad_alloc &) {
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this, job, made] {
            VeskCanvas *canvas = job->document ? job->document->getCanvas() : nullptr;
            if (job != current || !canvas)
                return;
            canvas->showPreview(made);
            job->isPreviewed = true;
        },
        Qt::QueuedConnection);
}

void PictureEditor::finish()
{
    while (current) { // what waits comes to be current
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
    if (job->isPreviewed && job->document && job->document->getCanvas())
        job->document->getCanvas()->endPreview();
    if (!isShown)
        waiting.clear(); // it was meant for what has not come
    goOn();
    Q_EMIT finished(isShown);
}

/// False when the document has changed, or memory was lacking.
bool PictureEditor::show(Job &job)
{
    const bool isMade = !job.edit.pictures.isEmpty();
    const bool isWanted =
        isMade && job.document && DocumentHistory::of(*job.document).revision() == job.revision;
    if (isWanted && job.direction == Direction::New)
        DocumentHistory::of(*job.document).add(std::move(job.edit));
    else if (isWanted)
        DocumentHistory::of(*job.document)
            .step(job.direction == Direction::Forth, job.edit.pictures);
    else if (isMade && job.direction != Direction::New)
        job.edit.steps->apply(job.edit.pictures); // they lead where they led before
    return isWanted;
}
