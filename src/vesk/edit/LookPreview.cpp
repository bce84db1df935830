#include "LookPreview.h"
#include "LookLayers.h"

#include <screen_colours.h>

LookPreview::LookPreview(VeskCanvas *shownCanvas)
    : QObject(shownCanvas)
    , canvas(shownCanvas)
    , latest(std::make_shared<std::atomic<int>>(0))
    , prepared(std::make_shared<LookLayers>())
{
    worker.setMaxThreadCount(1);
    connect(canvas, &VeskCanvas::viewMoved, this, [this] {
        if (isWanted)
            request(true);
    });
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
    if (!isWanted)
        return;
    isWanted = false;
    ++round;
    *latest = round;
    canvas->endPreview();
}

void LookPreview::request(bool isForShow)
{
    const VeskCanvas::Sight sight = canvas->sight(canvas->canvasSize());
    if (!source.pictures || sight.pixels.isEmpty())
        return;
    *latest = ++round;
    worker.clear(); // what nobody waits for any more
    worker.start([this, isForShow, sight, mine = round, from = source, number = sourceNumber,
                  look = wanted, now = latest, state = prepared] {
        if (mine != *now)
            return;
        state->read(from, number);
        state->reduce(sight.pixels, sight.size);
        if (!isForShow || mine != *now)
            return;
        const QImage levels = state->withLook(look);
        const VeskCanvas::Preview answer{sight, levels, screen_colours::shown(levels)};
        QMetaObject::invokeMethod(
            this, [this, answer, mine] { take(answer, mine); }, Qt::QueuedConnection);
    });
}

void LookPreview::take(const VeskCanvas::Preview &answer, int answeredRound)
{
    if (answeredRound != round || answer.picture.isNull())
        return;
    canvas->showPreview(answer);
    Q_EMIT ready();
}
