#include "SharpView.h"
#include "step_preview.h"

#include <PictureSteps.h>
#include <VeskCanvas.h>
#include <area_mean.h>

#include <algorithm>
#include <memory>
#include <new>

namespace {

constexpr int kRestMs = 60;

/// Others would take long, and threads for which painting waits.
bool isQuick(const QList<QImage> &pictures)
{
    return std::all_of(pictures.cbegin(), pictures.cend(), [](const QImage &picture) {
        return picture.isNull() || picture::isTakenFromRuns(picture.format());
    });
}

} // namespace

SharpView::SharpView(VeskCanvas *shownCanvas)
    : QObject(shownCanvas)
    , canvas(shownCanvas)
{
    worker.setMaxThreadCount(1);
    rest.setSingleShot(true);
    rest.setInterval(kRestMs);
    connect(&rest, &QTimer::timeout, this, &SharpView::render);
    canvas->setRenderer([this](int number) {
        asked = number;
        rest.start();
    });
}

SharpView::~SharpView()
{
    worker.waitForDone();
}

void SharpView::render()
{
    const auto unchanged = std::make_shared<PictureSteps>(nullptr);
    step_preview::Document document;
    if (canvas->context())
        document = step_preview::before(*canvas->context(), *unchanged);
    if (document.sight.pixels.isEmpty() || !isQuick(document.pictures)) {
        canvas->showRendition(asked, {});
        return;
    }
    worker.clear();
    worker.start([this, document, unchanged, number = asked] {
        VeskCanvas::Preview made;
        try {
            made = step_preview::after(document, *unchanged);
        } catch (const std::bad_alloc &) { // the reduced copies are there
        }
        QMetaObject::invokeMethod(
            this, [this, made, number] { canvas->showRendition(number, made); },
            Qt::QueuedConnection);
    });
}
