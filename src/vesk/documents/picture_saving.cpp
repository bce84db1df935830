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
    options.quality = target.quality;
    options.bitsPerSample = target.bitsPerSample;
    options.mayReplace = target.mayReplace;
    return picture::write(picture, target.path, target.format, options);
}

WriteResult document::savePictureBeside(const QImage &picture, const SaveTarget &target,
                                        const SavedMetadata &metadata)
{
    VeskProgressIndicator indicator(kIndicatorSize, nullptr);
    indicator.startAnimation();
    WriteResult result;
    const std::unique_ptr<QThread> writer(QThread::create([&] {
        result = savePicture(picture, target, metadata);
        QCoreApplication::postEvent(&indicator, new QCloseEvent);
    }));
    writer->start();
    indicator.exec(); // also returns when the program is told to quit
    writer->wait();
    return result;
}
