#include "LightDeveloper.h"

#include <develop.h>
#include <screen_colours.h>

#include <QColorSpace>
#include <QRgba64>

namespace {

constexpr quint16 kTop = 0xFFFF;

/// A channel at its end has lost its detail.
void markWhite(QImage &picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        auto *row = reinterpret_cast<QRgba64 *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const QRgba64 pixel = row[x];
            if (pixel.red() == kTop || pixel.green() == kTop || pixel.blue() == kTop)
                row[x] = QRgba64::fromRgba64(kTop, 0, 0, kTop);
        }
    }
}

} // namespace

LightDeveloper::LightDeveloper(QObject *parent)
    : QObject(parent)
{
    worker.setMaxThreadCount(1);
}

LightDeveloper::~LightDeveloper()
{
    cancel();
    worker.clear();
    worker.waitForDone();
}

void LightDeveloper::cancel()
{
    if (current)
        *current = true;
    current.reset();
}

void LightDeveloper::request(const Request &request)
{
    cancel();
    worker.clear();
    current = std::make_shared<std::atomic<bool>>(false);
    worker.start([this, request, cancelled = current] {
        const develop::Result result = answer(request, cancelled);
        QMetaObject::invokeMethod(
            this, [=] { take(result, cancelled); }, Qt::QueuedConnection);
    });
}

void LightDeveloper::take(const develop::Result &result, const Flag &cancelled)
{
    if (*cancelled)
        return;
    current.reset();
    Q_EMIT ready(result);
}

develop::Result LightDeveloper::answer(const Request &request, const Flag &cancelled)
{
    fusion::Control control;
    control.cancelled = cancelled.get();
    control.progress = [this, cancelled](double done) {
        QMetaObject::invokeMethod(
            this,
            [=] {
                if (!*cancelled)
                    Q_EMIT progressed(done);
            },
            Qt::QueuedConnection);
    };
    develop::Result result =
        develop::picture(reduced(request.light, request.largest), request.how, control);
    if (result.picture.isNull())
        return result;
    const QColorSpace space = result.picture.colorSpace();
    if (request.marksWhite)
        markWhite(result.picture);
    result.picture.setColorSpace(space);
    if (request.isForScreen)
        result.picture = screen_colours::shown(result.picture);
    return result;
}

const QImage &LightDeveloper::reduced(const QImage &light, QSize largest)
{
    if (largest.isEmpty() ||
        (light.width() <= largest.width() && light.height() <= largest.height()))
        return light;
    if (light.cacheKey() != reducedKey || largest != reducedTo) {
        small = light.scaled(largest, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        small.setColorSpace(light.colorSpace());
        reducedKey = light.cacheKey();
        reducedTo = largest;
    }
    return small;
}
