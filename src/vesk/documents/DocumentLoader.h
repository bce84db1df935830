#pragma once

#include "LoadedPicture.h"

#include <QObject>
#include <QStringList>
#include <QThreadPool>

/// Reads picture files beside the GUI thread, one after another in the order of asking.
/// Destroying it drops what is still waiting and waits for the file under way. GUI thread.
class DocumentLoader : public QObject
{
    Q_OBJECT

public:
    explicit DocumentLoader(QObject *parent = nullptr);
    ~DocumentLoader() override;

    void load(const QStringList &paths);
    bool isBusy() const { return total > 0; }

Q_SIGNALS:
    /// Starts with the file at path; position of total, from 1.
    void started(const QString &path, int position, int total);
    /// A file has been read, with or without success.
    void loaded(const LoadedPicture &picture);
    /// Nothing is waiting any more. Lists everything that failed since the loader was last idle.
    void finished(const QList<LoadedPicture> &failures);

private:
    void startNext();
    void take(const LoadedPicture &picture);

    QThreadPool worker;
    std::atomic<bool> cancelled{false};
    QStringList waiting;
    QList<LoadedPicture> failures;
    int total = 0; // files asked for since the loader was last idle
};
