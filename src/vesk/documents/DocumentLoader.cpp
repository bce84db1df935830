#include "DocumentLoader.h"

DocumentLoader::DocumentLoader(QObject *parent)
    : QObject(parent)
{
    worker.setMaxThreadCount(1); // one large picture in flight; decoding itself uses all cores
}

DocumentLoader::~DocumentLoader()
{
    cancelled = true;
    worker.waitForDone();
}

void DocumentLoader::load(const QStringList &paths)
{
    const bool wasIdle = !isBusy();
    waiting += paths;
    total += paths.size();
    if (wasIdle && !waiting.isEmpty())
        startNext();
}

void DocumentLoader::startNext()
{
    const QString path = waiting.takeFirst();
    Q_EMIT started(path, total - waiting.size(), total);
    worker.start([this, path] {
        const LoadedPicture picture = loadPicture(path, cancelled);
        QMetaObject::invokeMethod(
            this, [this, picture] { take(picture); }, Qt::QueuedConnection);
    });
}

void DocumentLoader::take(const LoadedPicture &picture)
{
    if (picture.image.isNull())
        failures.append(picture);
    Q_EMIT loaded(picture);
    if (!waiting.isEmpty()) {
        startNext();
        return;
    }
    total = 0;
    const QList<LoadedPicture> failed = std::exchange(failures, {});
    Q_EMIT finished(failed);
}
