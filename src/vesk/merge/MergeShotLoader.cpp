#include "MergeShotLoader.h"

namespace {

constexpr int kThreads = 2; // decoding itself uses all cores

} // namespace

MergeShotLoader::MergeShotLoader(QObject *parent)
    : QObject(parent)
{
    workers.setMaxThreadCount(kThreads);
}

MergeShotLoader::~MergeShotLoader()
{
    cancelled = true;
    workers.clear();
    workers.waitForDone();
}

void MergeShotLoader::load(const QStringList &paths)
{
    underWay += int(paths.size());
    for (const QString &path : paths)
        workers.start([this, path] {
            const MergeShot shot = merge_shot::read(path, cancelled);
            QMetaObject::invokeMethod(
                this, [this, shot] { take(shot); }, Qt::QueuedConnection);
        });
}

void MergeShotLoader::take(const MergeShot &shot)
{
    --underWay;
    Q_EMIT loaded(shot);
    if (underWay == 0)
        Q_EMIT finished();
}
