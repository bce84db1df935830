#include "LookPreview.h"
#include "LookLayers.h"

#include <VeskCanvas.h>
#include <screen_colours.h>

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

LookPreview::LookPreview(VeskCanvas *shownCanvas)
    : QWidget(shownCanvas)
    , canvas(shownCanvas)
    , latest(std::make_shared<std::atomic<int>>(0))
    , prepared(std::make_shared<LookLayers>())
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    worker.setMaxThreadCount(1);
    canvas->installEventFilter(this);
    connect(canvas, &VeskCanvas::viewMoved, this, &LookPreview::lay);
}

LookPreview::~LookPreview()
{
    worker.waitForDone();
}

void LookPreview::setSource(const LookSource &newSource)
{
    source = newSource;
    ++sourceNumber;
    worker.clear();
    if (!source.pictures)
        worker.start([state = prepared] { *state = {}; });
}

void LookPreview::show(const exposure::Look &look)
{
    wanted = look;
    isWanted = true;
    request(true);
}

void LookPreview::prepare()
{
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

std::pair<QImage, QRectF> LookPreview::shownLevels() const
{
    return {isVisible() && isAnswered() ? answerLevels : QImage(), answerView.place};
}

LookPreview::View LookPreview::view() const
{
    const QRectF shown(canvas->toDocument(QPointF(0, 0)),
                       canvas->toDocument(QPointF(canvas->width(), canvas->height())));
    const QRect pixels = shown.toAlignedRect() & QRect(QPoint(), canvas->canvasSize());
    const QPointF first = canvas->toWidget(pixels.topLeft());
    const QPointF end = canvas->toWidget(QPointF(pixels.right() + 1, pixels.bottom() + 1));
    if (canvas->zoom() >= 1)
        return {pixels, pixels.size(), QRectF(first, end)};
    // Whole pixels of the screen, as the canvas has them: nothing is scaled once more.
    const double ratio = canvas->devicePixelRatioF();
    const QRect device((first * ratio).toPoint(), (end * ratio).toPoint() - QPoint(1, 1));
    const QSize size = device.size().expandedTo(QSize(1, 1));
    return {pixels, size.boundedTo(pixels.size()),
            QRectF(QPointF(device.topLeft()) / ratio, QSizeF(size) / ratio)};
}

void LookPreview::request(bool isForShow)
{
    const View asked = view();
    if (!source.pictures || asked.pixels.isEmpty())
        return;
    askedView = asked;
    *latest = ++round;
    worker.clear(); // what nobody waits for any more
    worker.start([this, isForShow, asked, mine = round, from = source, number = sourceNumber,
                  look = wanted, now = latest, state = prepared] {
        if (mine != *now)
            return;
        state->read(from, number);
        state->reduce(asked.pixels, asked.size);
        if (!isForShow || mine != *now)
            return;
        const QImage levels = state->withLook(look);
        const QImage picture = screen_colours::shown(levels);
        QMetaObject::invokeMethod(
            this,
            [this, levels, picture, asked, mine] {
                if (mine == round && !picture.isNull())
                    take(levels, picture, asked);
            },
            Qt::QueuedConnection);
    });
}

void LookPreview::take(const QImage &levels, const QImage &picture, const View &view)
{
    answerLevels = levels;
    answer = picture;
    answerView = view;
    lay();
    QWidget::show();
    update();
    Q_EMIT ready();
}

/// The canvas need not paint what this covers.
void LookPreview::lay()
{
    const QRect covered = answerView.place.toAlignedRect() & canvas->rect();
    const bool hidesAll = isAnswered() && answerView.place.contains(covered) && !answer.isNull() &&
                          !answer.hasAlphaChannel();
    setAttribute(Qt::WA_OpaquePaintEvent, hidesAll);
    setGeometry(covered);
}

bool LookPreview::isAnswered() const
{
    return answerView == view();
}

/// The view may be moved while a look is shown.
bool LookPreview::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == canvas && event->type() == QEvent::Paint && isWanted && !(view() == askedView))
        request(true);
    return QWidget::eventFilter(watched, event);
}

void LookPreview::paintEvent(QPaintEvent *)
{
    if (answer.isNull() || !isAnswered())
        return; // the canvas below shows what there is, until the answer for this view is there
    const bool isAsItIs = answerView.place.size() * devicePixelRatioF() == QSizeF(answer.size());
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, canvas->zoom() < 1 && !isAsItIs);
    painter.drawImage(answerView.place.translated(-pos()), answer);
}
