#include "ThumbnailLoader.h"

#include "screen_colours.h"

#include <picture_reader.h>

namespace {

constexpr int kThreads = 2;
constexpr qint64 kLargestPicture = 256LL * 1000 * 1000; // pixels

} // namespace

QImage thumbnail::make(const QString &path, int side, const std::atomic<bool> &cancelled)
{
    if (cancelled)
        return {};
    ReadOptions options;
    options.pixelLimit = kLargestPicture;
    options.side = side;
    options.colours = ReadOptions::Colours::True;
    options.light = ReadOptions::Light::Shown;
    options.cancelled = &cancelled;
    return screen_colours::shown(picture::read(path, options).image);
}

ThumbnailLoader::ThumbnailLoader(int thumbnailSide, QObject *parent)
    : QObject(parent)
    , side(thumbnailSide)
{
    workers.setMaxThreadCount(kThreads);
}

ThumbnailLoader::~ThumbnailLoader()
{
    cancelled = true;
    workers.waitForDone();
}

int ThumbnailLoader::request(const QString &path)
{
    waiting.append({++lastNumber, path});
    startNext();
    return lastNumber;
}

void ThumbnailLoader::startNext()
{
    while (running < kThreads && !waiting.isEmpty()) {
        ++running;
        workers.start([this, next = waiting.takeLast()] {
            const QImage small = thumbnail::make(next.path, side, cancelled);
            QMetaObject::invokeMethod(
                this, [=] { take(next, small); }, Qt::QueuedConnection);
        });
    }
}

void ThumbnailLoader::take(const Request &request, const QImage &thumbnail)
{
    --running;
    startNext();
    Q_EMIT ready(request.number, request.path, thumbnail);
}
