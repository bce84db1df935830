#include "picture_saving.h"

#include <VeskProgressIndicator.h>
#include <exif_metadata.h>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QPainter>
#include <QThread>

#include <memory>

namespace {

constexpr QSize kIndicatorSize(60, 60);

ExifTags metadata(const QStringList &sources)
{
    for (const QString &path : sources) {
        const ExifTags tags = exif::read(path);
        if (!tags.isEmpty())
            return tags;
    }
    return {};
}

} // namespace

WriteResult document::savePicture(const QImage &picture, const SaveTarget &target,
                                  const QStringList &metadataSources)
{
    WriteOptions options;
    options.exif = metadata(metadataSources);
    options.quality = target.quality;
    options.mayReplace = target.mayReplace;
    return picture::write(picture, target.path, target.format, options);
}

WriteResult document::savePictureBeside(const QImage &picture, const SaveTarget &target,
                                        const QStringList &metadataSources)
{
    VeskProgressIndicator indicator(kIndicatorSize, nullptr);
    indicator.startAnimation();
    WriteResult result;
    const std::unique_ptr<QThread> writer(QThread::create([&] {
        result = savePicture(picture, target, metadataSources);
        QCoreApplication::postEvent(&indicator, new QCloseEvent);
    }));
    writer->start();
    indicator.exec(); // also returns when the program is told to quit
    writer->wait();
    return result;
}
