#include "RecoveryFolder.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUuid>

#include <algorithm>

namespace {

const QLatin1String kLock("/lock");
const QLatin1String kSuffix(".vesk-recovery");

/// Not by age: whether its process lives.
std::unique_ptr<QLockFile> lockIn(const QString &folder)
{
    auto lock = std::make_unique<QLockFile>(folder + kLock);
    lock->setStaleLockTime(0);
    return lock;
}

void removeIfEmpty(const QString &folder)
{
    if (QDir(folder).entryList({QLatin1Char('*') + kSuffix}, QDir::Files).isEmpty())
        QDir(folder).removeRecursively(); // nothing but what was left half-written
}

} // namespace

RecoveryFolder::RecoveryFolder(const QString &rootFolder)
    : root(rootFolder)
    , own(rootFolder + QLatin1Char('/') + QUuid::createUuid().toString(QUuid::WithoutBraces))
{
}

RecoveryFolder::~RecoveryFolder()
{
    if (lock) {
        lock->unlock();
        removeIfEmpty(own);
    }
    for (const auto &each : taken) {
        const QString folder = QFileInfo(each->fileName()).path();
        each->unlock();
        removeIfEmpty(folder);
    }
}

QString RecoveryFolder::defaultRoot()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
           QStringLiteral("/recovery");
}

QString RecoveryFolder::open()
{
    if (lock)
        return {};
    auto made = lockIn(own);
    if (!QDir().mkpath(own) || !made->tryLock(0))
        return QCoreApplication::translate("Recovery", "the folder “%1” cannot be written")
            .arg(QDir::toNativeSeparators(root));
    QFile::setPermissions(own, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    lock = std::move(made);
    return {};
}

QString RecoveryFolder::newPath()
{
    return QStringLiteral("%1/%2%3").arg(own).arg(++count).arg(kSuffix);
}

QStringList RecoveryFolder::orphans()
{
    QFileInfoList files;
    const QFileInfoList folders =
        QDir(root).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QFileInfo &folder : folders) {
        const QDir inside(folder.filePath());
        auto itsLock = lockIn(folder.filePath());
        if (folder.filePath() == own || !itsLock->tryLock(0))
            continue; // somebody is at work there
        files += inside.entryInfoList({QLatin1Char('*') + kSuffix}, QDir::Files);
        taken.push_back(std::move(itsLock));
    }
    std::sort(files.begin(), files.end(), [](const QFileInfo &a, const QFileInfo &b) {
        return a.lastModified() < b.lastModified();
    });
    QStringList paths;
    for (const QFileInfo &file : files)
        paths.append(file.filePath());
    return paths;
}

QString RecoveryFolder::adopt(const QString &orphan)
{
    const QString path = newPath();
    return open().isEmpty() && QFile::rename(orphan, path) ? path : QString();
}

void RecoveryFolder::remove(const QString &path)
{
    if (!path.isEmpty())
        QFile::remove(path);
}
