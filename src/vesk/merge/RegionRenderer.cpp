#include "RegionRenderer.h"
#include "clipping_marks.h"

#include <area_mean.h>
#include <screen_colours.h>

#include <QColorSpace>

namespace {

QImage fitted(const QImage &picture, QSize size)
{
    const bool isSmaller = size.width() < picture.width() && size.height() < picture.height();
    return isSmaller && !size.isEmpty() ? picture::areaMean(picture, size) : picture;
}

} // namespace

RegionRenderer::RegionRenderer(QObject *parent)
    : QObject(parent)
{
    worker.setMaxThreadCount(1);
}

RegionRenderer::~RegionRenderer()
{
    cancel();
    worker.clear();
    worker.waitForDone();
}

void RegionRenderer::cancel()
{
    if (current)
        *current = true;
    current.reset();
}

void RegionRenderer::request(const RegionRequest &request)
{
    cancel();
    worker.clear();
    current = std::make_shared<std::atomic<bool>>(false);
    worker.start([this, request, cancelled = current] {
        if (*cancelled)
            return;
        const RegionPicture picture = render(request);
        QMetaObject::invokeMethod(
            this,
            [this, picture, cancelled] {
                if (!*cancelled)
                    Q_EMIT ready(picture);
            },
            Qt::QueuedConnection);
    });
}

RegionPicture RegionRenderer::render(const RegionRequest &request)
{
    if (request.look.hasTones() && mapped != request.merged.cacheKey()) {
        map = std::make_unique<exposure::LightMap>(request.merged);
        mapped = request.merged.cacheKey();
    }
    QImage part = request.merged.copy(request.area);
    const QColorSpace space = part.colorSpace();
    exposure::adjust(part, request.look, request.look.hasTones() ? map.get() : nullptr,
                     request.area.topLeft());
    part.setColorSpace(space);
    RegionPicture picture;
    picture.area = request.area;
    picture.clipping = fitted(clipping::marks(part), request.shownAs);
    picture.after = screen_colours::shown(fitted(part, request.shownAs));
    if (!request.before.isNull())
        picture.before =
            screen_colours::shown(fitted(request.before.copy(request.area), request.shownAs));
    return picture;
}
