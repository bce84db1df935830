#include "picture_saving.h"

#include <VeskProgressIndicator.h>
#include <metadata_reader.h>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QPainter>
#include <QThread>

#include <memory>

namespace {

constexpr QSize kIndicatorSize(60, 60);

Metadata metadataOf(const QStringList &sources)
{
    for (const QString &path : sources) {
        Metadata metadata = metadata::read(path);
        if (!metadata.isEmpty())
            return metadata;
    }
    return {};
}

} // namespace

WriteResult document::savePicture(const QImage &picture, const SaveTarget &target,
                                  const SavedMetadata &metadata)
{
    WriteOptions options;
    options.metadata = metadataOf(metadata.sources);
    options.mark = metadata.mark;
    options.gainMap = metadata.gainMap;
    options.quality = target.quality;
    options.bitsPerSample = target.bitsPerSample;
    options.mayReplace = target.mayReplace;
    return picture::write(picture, target.path, target.format, options);
}

void document::workBeside(const std::function<void()> &work)
{
    VeskProgressIndicator indicator(kIndicatorSize, nullptr);
    indicator.startAnimation();
    const std::unique_ptr<QThread> worker(QThread::create([&] {
        work();
        QCoreApplication::postEvent(&indicator, new QCloseEvent);
    }));
    worker->start();
    indicator.exec(); // also returns when the program is told to quit
    worker->wait();
}

WriteResult document::savePictureBeside(const QImage &picture, const SaveTarget &target,
                                        const SavedMetadata &metadata)
{
    WriteResult result;
    workBeside([&] { result = savePicture(picture, target, metadata); });
    return result;
}
