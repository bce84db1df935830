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
        workers.start([this, path, set = currentSet] {
            const MergeShot shot = merge_shot::read(path, cancelled);
            QMetaObject::invokeMethod(
                this, [this, shot, set] { take(shot, set); }, Qt::QueuedConnection);
        });
}

void MergeShotLoader::drop()
{
    workers.clear();
    ++currentSet;
    underWay = 0;
}

void MergeShotLoader::take(const MergeShot &shot, int set)
{
    if (set != currentSet)
        return;
    --underWay;
    Q_EMIT loaded(shot);
    if (underWay == 0)
        Q_EMIT finished();
}
