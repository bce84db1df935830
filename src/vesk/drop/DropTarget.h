#pragma once

#include <QObject>
#include <QStringList>

#include <functional>

class DropFrame;
class QMimeData;
class QWidget;

/// Takes local files that are dropped on a window, and frames the place in it that they go to while
/// they hover. GUI thread.
class DropTarget : public QObject
{
    Q_OBJECT

public:
    /// The part of the window that takes these files; null when nothing does.
    using PlaceFor = std::function<QWidget *(const QStringList &paths)>;

    /// window: becomes the owner.
    DropTarget(QWidget *window, PlaceFor placeFor);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// One file or more that a place was there for. Comes when the drop is over, so that the
    /// program the files come from need not wait.
    void dropped(const QStringList &paths);

private:
    bool enter(QEvent *event);
    void drop(QEvent *event);

    const PlaceFor placeFor;
    DropFrame *frame;
};
