#include "DocumentOpener.h"
#include "DocumentArea.h"
#include "open_failure_box.h"
#include "picture_document.h"

#include <VeskContext.h>

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
        if (file.isDir())
            Q_EMIT folderRequested(file.absoluteFilePath());
        else if (!showOpen(path))
            files.append(file.absoluteFilePath());
    }
    if (files.isEmpty()) {
        if (!reader.isBusy() && !batch.isEmpty())
            finish({});
        return;
    }
    if (QFileInfo(QFileInfo(files.constFirst()).path()).isDir())
        Q_EMIT folderRequested(QFileInfo(files.constFirst()).path());
    reader.load(files);
}

/// False when no document has that file.
bool DocumentOpener::showOpen(const QString &path)
{
    VeskContext *document = documents->documentOf(path);
    if (!document)
        return false;
    documents->makeCurrent(document);
    batch.append(document->getFilePath());
    return true;
}

void DocumentOpener::take(const LoadedPicture &picture)
{
    if (picture.image.isNull()) {
        Q_EMIT failed(picture.path);
        return;
    }
    if (picture.isLight()) {
        Q_EMIT lightOpened(picture);
    } else if (!showOpen(picture.path)) { // or it was asked for twice
        VeskContext *document =
            documents->open(picture.image, QFileInfo(picture.path).fileName(), picture.path);
        document::setFileStamp(*document, picture.stamp);
        document::setGainMapInFile(*document, picture.hasGainMap);
        batch.append(picture.path);
    }
    Q_EMIT opened(picture.path);
}

void DocumentOpener::finish(const QList<LoadedPicture> &failures)
{
    Q_EMIT finished(std::exchange(batch, {}));
    if (!failures.isEmpty())
        document::showOpenFailures(failures, window);
}
