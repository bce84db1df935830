#include "ThumbnailLoader.h"

#include <VeskRaw.h>
#include <VeskRawType.h>

#include <QImageReader>

namespace {

constexpr int kThreads = 2;
constexpr qint64 kLargestPicture = 256LL * 1000 * 1000; // pixels

QImage fitted(const QImage &picture, int side)
{
    if (picture.width() <= side && picture.height() <= side)
        return picture;
    return picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

QImage readSmall(const QString &path, int side)
{
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (!size.isValid() || qint64(size.width()) * size.height() > kLargestPicture)
        return {};
    // Twice the size, where the format can read that faster, so that the rest is smooth.
    if (reader.supportsOption(QImageIOHandler::ScaledSize) &&
        qMax(size.width(), size.height()) > 2 * side)
        reader.setScaledSize(
            size.scaled(2 * side, 2 * side, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    return fitted(reader.read(), side);
}

} // namespace

QImage makeThumbnail(const QString &path, int side, const std::atomic<bool> &cancelled)
{
    if (cancelled)
        return {};
    if (VeskRawType::isRaw(path))
        return fitted(VeskRaw::convert(path, true, &cancelled).picture, side);
    return readSmall(path, side);
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
            const QImage thumbnail = makeThumbnail(next.path, side, cancelled);
            QMetaObject::invokeMethod(
                this, [=] { take(next, thumbnail); }, Qt::QueuedConnection);
        });
    }
}

void ThumbnailLoader::take(const Request &request, const QImage &thumbnail)
{
    --running;
    startNext();
    Q_EMIT ready(request.number, request.path, thumbnail);
}
