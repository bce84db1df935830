#include "RecoveryKeeper.h"
#include "DocumentArea.h"
#include "DocumentHistory.h"
#include "picture_saving.h"
#include "recovery_file.h"

#include <VeskContext.h>
#include <VeskContextManager.h>

#include <QFile>

RecoveryKeeper::RecoveryKeeper(DocumentArea *area, const QString &root)
    : QObject(area)
    , documents(area)
    , folder(root)
{
    worker.setMaxThreadCount(1);
    worker.setThreadPriority(QThread::LowPriority);
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, this, &RecoveryKeeper::writeNext);
    auto *manager = VeskContextManager::getInstance();
    connect(manager, &VeskContextManager::contextAdded, this, &RecoveryKeeper::watch);
    connect(manager, &VeskContextManager::contextRemoved, this, &RecoveryKeeper::forget);
}

/// What still has unsaved changes keeps its file: somebody ended the program without asking.
RecoveryKeeper::~RecoveryKeeper()
{
    worker.waitForDone();
}

void RecoveryKeeper::watch(VeskContext *document)
{
    entries[document];
    connect(&DocumentHistory::of(*document), &DocumentHistory::changed, this,
            [this, document] { changed(document); });
    connect(document, &VeskContext::saveAbleChanged, this, [this, document](bool isModified) {
        if (isModified)
            return changed(document);
        const auto found = entries.find(document);
        if (found == entries.end())
            return;
        folder.remove(found->second.path);
        found->second = {};
    });
    if (document->isSaveAble())
        changed(document);
}

void RecoveryKeeper::changed(VeskContext *document)
{
    const auto found = entries.find(document);
    if (found == entries.end())
        return;
    // The history tells of the pictures before it says that the document is modified.
    found->second.isWaiting = true;
    if (!timer.isActive() && !isWriting)
        timer.start(delay);
}

QPointer<VeskContext> RecoveryKeeper::nextWaiting() const
{
    for (const auto &[document, entry] : entries) {
        if (entry.isWaiting && document->isSaveAble())
            return document;
    }
    return nullptr;
}

void RecoveryKeeper::writeNext()
{
    const QPointer<VeskContext> document = nextWaiting();
    if (!document || isWriting)
        return;
    Entry &entry = entries[document];
    entry.isWaiting = false;
    const QString problem = folder.open();
    if (!problem.isEmpty())
        return take(document, -1, entry.path, problem);
    if (entry.path.isEmpty())
        entry.path = folder.newPath();
    isWriting = true;
    const RecoveredDocument kept = recovery::snapshot(*document);
    const int revision = DocumentHistory::of(*document).revision();
    worker.start([this, document, revision, kept, path = entry.path] {
        const QString failure = recovery::write(kept, path);
        QMetaObject::invokeMethod(
            this, [=] { take(document, revision, path, failure); }, Qt::QueuedConnection);
    });
}

void RecoveryKeeper::take(VeskContext *document, int revision, const QString &path,
                          const QString &problem)
{
    isWriting = false;
    const auto found = entries.find(document);
    const bool isKept = found != entries.end() && document->isSaveAble();
    if (!isKept)
        folder.remove(path); // it was saved or closed meanwhile
    else if (problem.isEmpty())
        found->second.writtenRevision = revision;
    else
        found->second.isWaiting = true;
    if (!problem.isEmpty() && !hasFailed)
        Q_EMIT failed(problem);
    hasFailed = !problem.isEmpty();
    if (problem.isEmpty())
        Q_EMIT written();
    if (nextWaiting())
        timer.start(delay);
}

void RecoveryKeeper::forget(VeskContext *document)
{
    const auto found = entries.find(document);
    if (found == entries.end())
        return;
    folder.remove(found->second.path);
    entries.erase(found);
}

void RecoveryKeeper::forgetAll()
{
    worker.waitForDone();
    for (const auto &[document, entry] : entries)
        folder.remove(entry.path);
    entries.clear();
}

QStringList RecoveryKeeper::orphans()
{
    return folder.orphans();
}

QStringList RecoveryKeeper::names(const QStringList &orphans)
{
    QStringList all;
    for (const QString &path : orphans)
        all.append(recovery::readName(path));
    all.removeAll({});
    return all;
}

QStringList RecoveryKeeper::recover(const QStringList &orphans)
{
    QStringList unreadable;
    for (const QString &path : orphans) {
        std::optional<RecoveredDocument> kept;
        document::workBeside([&] { kept = recovery::read(path); });
        if (!kept) {
            unreadable.append(path);
            continue;
        }
        VeskContext *document = recovery::restored(*kept, documents);
        VeskContextManager::getInstance()->addContext(document);
        documents->makeCurrent(document);
        Entry &entry = entries[document];
        entry.path = folder.adopt(path); // the file stands for the document until the next
        entry.isWaiting = entry.path.isEmpty();
    }
    return unreadable;
}

void RecoveryKeeper::discard(const QStringList &orphans)
{
    for (const QString &path : orphans)
        QFile::remove(path);
}
