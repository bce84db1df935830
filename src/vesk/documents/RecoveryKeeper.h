#pragma once

#include "RecoveryFolder.h"

#include <QObject>
#include <QPointer>
#include <QThreadPool>
#include <QTimer>

#include <map>
#include <memory>

class DocumentArea;
class VeskContext;
struct RecoveredDocument;

/// Keeps a recovery file of each document with unsaved changes: written beside the GUI thread, at
/// most kLongestDelayMs after a change, one after another. Nothing is written, and no timer runs,
/// while nothing changes. A file goes when its document is saved, or closed by the user. A disk
/// that is full costs the recovery only; it is told, and tried again. GUI thread.
class RecoveryKeeper : public QObject
{
    Q_OBJECT

public:
    static constexpr int kLongestDelayMs = 20000; // the rest of half a minute is for the writing

    /// documents: borrowed. root: see RecoveryFolder.
    explicit RecoveryKeeper(DocumentArea *documents,
                            const QString &root = RecoveryFolder::defaultRoot());
    ~RecoveryKeeper() override;

    /// For tests.
    void setDelay(int milliseconds) { delay = milliseconds; }

    /// Files of a program that ended without saving; names for the user, in the same order.
    QStringList orphans();
    static QStringList names(const QStringList &orphans);
    /// Opens what they hold, with unsaved changes; a busy indicator is shown while they are read.
    /// Those that cannot be read stay where they are; they are returned.
    QStringList recover(const QStringList &orphans);
    static void discard(const QStringList &orphans);
    /// The user agreed to lose what is open: nothing of it comes back.
    void forgetAll();

Q_SIGNALS:
    /// A recovery file could not be written; in words. Once, until it works again.
    void failed(const QString &reason);
    void written();

private:
    struct Entry
    {
        QString path; ///< empty before the first time
        int writtenRevision = -1;
        bool isWaiting = false;
    };

    void watch(VeskContext *document);
    void changed(VeskContext *document);
    void writeNext();
    void take(VeskContext *document, int revision, const QString &path, const QString &problem);
    void forget(VeskContext *document);
    QPointer<VeskContext> nextWaiting() const;

    DocumentArea *documents;
    RecoveryFolder folder;
    std::map<VeskContext *, Entry> entries;
    QTimer timer; // runs while something waits
    QThreadPool worker;
    int delay = kLongestDelayMs;
    bool isWriting = false;
    bool hasFailed = false;
};
