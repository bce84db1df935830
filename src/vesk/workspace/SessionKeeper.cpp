#include "SessionKeeper.h"
#include "editor_settings.h"

#include <DocumentArea.h>
#include <RecoveryKeeper.h>
#include <VeskContext.h>

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QMessageBox>
#include <QPushButton>

namespace {

/// Beside the settings. Not by age: whether its process lives.
std::unique_ptr<QLockFile> lockOf(const QString &recoveryRoot)
{
    const QString folder = QFileInfo(recoveryRoot).path();
    QDir().mkpath(folder);
    auto lock = std::make_unique<QLockFile>(folder + QStringLiteral("/session.lock"));
    lock->setStaleLockTime(0);
    return lock;
}

} // namespace

SessionKeeper::SessionKeeper(DocumentArea *area, QWidget *questionWindow)
    : documents(area)
    , window(questionWindow)
    , lock(lockOf(RecoveryFolder::defaultRoot()))
    , isOwner(lock->tryLock(0))
    , last(isOwner ? settings::session() : QStringList())
    , recovery(std::make_unique<RecoveryKeeper>(area))
{
    recovery->setDelay(settings::recoverySeconds() * 1000);
    connect(recovery.get(), &RecoveryKeeper::failed, this, [this](const QString &reason) {
        Q_EMIT said(tr("Unsaved changes cannot be kept for recovery: %1").arg(reason));
    });
}

SessionKeeper::~SessionKeeper() = default;

void SessionKeeper::offerRecovery()
{
    const QStringList orphans = recovery->orphans();
    if (orphans.isEmpty())
        return;
    QMessageBox question(QMessageBox::Question, tr("Recovery"),
                         tr("Vesk did not end as it should. Unsaved changes were kept of:"),
                         QMessageBox::Open | QMessageBox::Discard | QMessageBox::Cancel, window);
    question.setInformativeText(RecoveryKeeper::names(orphans).join(QLatin1Char('\n')));
    question.button(QMessageBox::Open)->setText(tr("&Recover"));
    question.button(QMessageBox::Cancel)->setText(tr("&Later"));
    question.setDefaultButton(QMessageBox::Open);
    const int answer = question.exec();
    if (answer == QMessageBox::Discard)
        RecoveryKeeper::discard(orphans);
    if (answer != QMessageBox::Open)
        return;
    const QStringList unreadable = recovery->recover(orphans);
    if (!unreadable.isEmpty())
        Q_EMIT said(tr("Could not be recovered: %1")
                        .arg(QDir::toNativeSeparators(unreadable.constFirst())));
}

QStringList SessionKeeper::lastFiles() const
{
    QStringList paths;
    for (const QString &path : last) {
        if (QFileInfo(path).isFile())
            paths.append(path);
    }
    return paths;
}

void SessionKeeper::remember()
{
    if (isEnding || !isOwner)
        return;
    QStringList paths;
    const VeskContext *inFront = documents->currentDocument();
    const QList<VeskContext *> all = documents->documents();
    for (const VeskContext *document : all) {
        if (!document->getFilePath().isEmpty() && document != inFront)
            paths.append(document->getFilePath());
    }
    if (inFront && !inFront->getFilePath().isEmpty())
        paths.append(inFront->getFilePath());
    settings::setSession(paths);
}

void SessionKeeper::end()
{
    isEnding = true;
    recovery->forgetAll();
}
