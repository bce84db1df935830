#include "LookPreview.h"

#include <VeskCanvas.h>
#include <adjust.h>
#include <screen_colours.h>

#include <QColorSpace>
#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

LookPreview::LookPreview(VeskCanvas *shownCanvas)
    : QWidget(shownCanvas)
    , canvas(shownCanvas)
    , latest(std::make_shared<std::atomic<int>>(0))
    , prepared(std::make_shared<Prepared>())
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(canvas->rect());
    hide();
    worker.setMaxThreadCount(1);
    canvas->installEventFilter(this);
}

LookPreview::~LookPreview()
{
    worker.waitForDone();
}

void LookPreview::show(const QImage &picture, const exposure::Look &look)
{
    source = picture;
    wanted = look;
    isWanted = true;
    request(true);
}

void LookPreview::prepare(const QImage &picture)
{
    source = picture;
    if (!isWanted)
        request(false);
}

void LookPreview::end()
{
    isWanted = false;
    ++round;
    *latest = round;
    hide();
}

LookPreview::View LookPreview::view() const
{
    const QRectF shown(canvas->toDocument(QPointF(0, 0)),
                       canvas->toDocument(QPointF(canvas->width(), canvas->height())));
    const QRect pixels = shown.toAlignedRect() & QRect(QPoint(), canvas->canvasSize());
    const double zoom = std::min(1.0, canvas->zoom());
    const QSize size(std::max(1, int(std::ceil(pixels.width() * zoom))),
                     std::max(1, int(std::ceil(pixels.height() * zoom))));
    return {pixels, size,
            QRectF(canvas->toWidget(pixels.topLeft()),
                   canvas->toWidget(QPointF(pixels.right() + 1, pixels.bottom() + 1)))};
}

void LookPreview::makeReady(Prepared &prepared, const QImage &picture, const View &view)
{
    const bool isReady = prepared.key == picture.cacheKey() && prepared.pixels == view.pixels &&
                         prepared.size == view.size;
    if (isReady)
        return;
    const QImage part = view.pixels == picture.rect() ? picture : picture.copy(view.pixels);
    const QImage small = part.size() == view.size ? part
                                                  : part.scaled(view.size, Qt::IgnoreAspectRatio,
                                                                Qt::SmoothTransformation);
    prepared.small = small.convertToFormat(exposure::adjustableFormat(small));
    prepared.small.setColorSpace(picture.colorSpace());
    prepared.key = picture.cacheKey();
    prepared.pixels = view.pixels;
    prepared.size = view.size;
}

void LookPreview::request(bool isForShow)
{
    const View asked = view();
    if (source.isNull() || asked.pixels.isEmpty())
        return;
    askedView = asked;
    *latest = ++round;
    worker.clear(); // what nobody waits for any more
    worker.start([this, isForShow, asked, mine = round, picture = source, look = wanted,
                  now = latest, state = prepared] {
        if (mine != *now)
            return;
        makeReady(*state, picture, asked);
        if (state->mapKey != picture.cacheKey()) {
            const QImage whole = picture.convertToFormat(exposure::adjustableFormat(picture));
            state->map = std::make_unique<exposure::LightMap>(whole);
            state->mapKey = picture.cacheKey();
        }
        if (!isForShow || mine != *now)
            return;
        QImage result = state->small;
        const double step = double(asked.pixels.width()) / asked.size.width();
        exposure::adjust(result, look, state->map.get(), {asked.pixels.topLeft(), step});
        result.setColorSpace(picture.colorSpace());
        result = screen_colours::shown(result);
        QMetaObject::invokeMethod(
            this,
            [this, result, asked, mine] {
                if (mine == round)
                    take(result, asked);
            },
            Qt::QueuedConnection);
    });
}

void LookPreview::take(const QImage &picture, const View &view)
{
    answer = picture;
    answerView = view;
    setGeometry(canvas->rect());
    QWidget::show();
    update();
    Q_EMIT ready();
}

/// The view may be moved while a look is shown.
bool LookPreview::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == canvas && event->type() == QEvent::Resize)
        setGeometry(canvas->rect());
    if (watched == canvas && event->type() == QEvent::Paint && isWanted && !(view() == askedView))
        request(true);
    return QWidget::eventFilter(watched, event);
}

void LookPreview::paintEvent(QPaintEvent *)
{
    if (answer.isNull() || !(answerView == view()))
        return; // the canvas below shows what there is, until the answer for this view is there
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, canvas->zoom() < 1);
    painter.drawImage(answerView.place, answer);
}
