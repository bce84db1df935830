#include "DocumentOpener.h"
#include "DocumentArea.h"
#include "open_failure_box.h"

#include <QFileInfo>

DocumentOpener::DocumentOpener(DocumentArea *area, QWidget *messageWindow)
    : QObject(messageWindow)
    , documents(area)
    , window(messageWindow)
{
    connect(&reader, &DocumentLoader::loaded, this, &DocumentOpener::take);
    connect(&reader, &DocumentLoader::finished, this, &DocumentOpener::finish);
}

void DocumentOpener::open(const QStringList &paths)
{
    QStringList files;
    for (const QString &path : paths) {
        const QFileInfo file(path);
        VeskContext *document = documents->documentOf(path);
        if (file.isDir())
            Q_EMIT folderRequested(file.absoluteFilePath());
        else if (document)
            documents->makeCurrent(document);
        else
            files.append(file.absoluteFilePath());
    }
    if (files.isEmpty())
        return;
    if (QFileInfo(QFileInfo(files.constFirst()).path()).isDir())
        Q_EMIT folderRequested(QFileInfo(files.constFirst()).path());
    reader.load(files);
}

void DocumentOpener::take(const LoadedPicture &picture)
{
    if (picture.image.isNull()) {
        Q_EMIT failed(picture.path);
        return;
    }
    if (VeskContext *document = documents->documentOf(picture.path)) // asked for twice
        documents->makeCurrent(document);
    else
        documents->open(picture.image, QFileInfo(picture.path).fileName(), picture.path);
    batch.append(picture.path);
    Q_EMIT opened(picture.path);
}

void DocumentOpener::finish(const QList<LoadedPicture> &failures)
{
    Q_EMIT finished(std::exchange(batch, {}));
    if (!failures.isEmpty())
        showOpenFailures(failures, window);
}
