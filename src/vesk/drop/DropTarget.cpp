#include "DropTarget.h"
#include "DropFrame.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace {

QStringList localPaths(const QMimeData *data)
{
    QStringList paths;
    const QList<QUrl> urls = data->urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    return paths;
}

} // namespace

DropTarget::DropTarget(QWidget *window, PlaceFor place)
    : QObject(window)
    , placeFor(std::move(place))
    , frame(new DropFrame(window))
{
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

bool DropTarget::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
        return enter(event);
    case QEvent::DragLeave:
        frame->showAround(nullptr);
        return true;
    case QEvent::Drop:
        drop(event);
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

/// Moves are accepted where the entry was.
bool DropTarget::enter(QEvent *event)
{
    auto *drag = static_cast<QDropEvent *>(event);
    const QStringList paths = localPaths(drag->mimeData());
    const QWidget *place = paths.isEmpty() ? nullptr : placeFor(paths);
    frame->showAround(place);
    if (place)
        drag->acceptProposedAction();
    else
        drag->ignore();
    return true;
}

void DropTarget::drop(QEvent *event)
{
    auto *end = static_cast<QDropEvent *>(event);
    frame->showAround(nullptr);
    const QStringList paths = localPaths(end->mimeData());
    if (paths.isEmpty() || !placeFor(paths))
        return end->ignore();
    end->acceptProposedAction();
    QMetaObject::invokeMethod(
        this, [this, paths] { Q_EMIT dropped(paths); }, Qt::QueuedConnection);
}
