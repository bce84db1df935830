#include "DocumentTabBar.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int kReadableLetters = 14;
constexpr int kMarkHeight = 3;

} // namespace

int DocumentTabBar::widthFor(const QStringList &labels) const
{
    int width = 0;
    for (const QString &label : labels)
        width += fontMetrics().size(Qt::TextShowMnemonic, label).width() + frameWidth();
    return width;
}

/// What a tab takes beside its text; the same for all.
int DocumentTabBar::frameWidth() const
{
    if (count() == 0)
        return 0;
    return tabSizeHint(0).width() - fontMetrics().size(Qt::TextShowMnemonic, tabText(0)).width();
}

QSize DocumentTabBar::minimumTabSizeHint(int index) const
{
    const int readable = kReadableLetters * fontMetrics().averageCharWidth() + frameWidth();
    const QSize hint = tabSizeHint(index);
    return {std::min(hint.width(), readable), hint.height()};
}

void DocumentTabBar::contextMenuEvent(QContextMenuEvent *event)
{
    const int index = tabAt(event->pos());
    if (index < 0)
        return;
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("&Close"), this, [this, index] { Q_EMIT tabCloseRequested(index); });
    QAction *others = menu->addAction(tr("Close &Others"), this,
                                      [this, index] { Q_EMIT closeOthersRequested(index); });
    others->setEnabled(count() > 1);
    menu->popup(event->globalPos());
}

void DocumentTabBar::setMarked(bool marked)
{
    isMarked = marked;
    update();
}

void DocumentTabBar::paintEvent(QPaintEvent *event)
{
    QTabBar::paintEvent(event);
    QRect line = tabRect(currentIndex());
    line.setHeight(kMarkHeight);
    if (isMarked)
        QPainter(this).fillRect(line, palette().highlight());
}

void DocumentTabBar::mousePressEvent(QMouseEvent *event)
{
    pressedIndex = event->button() == Qt::MiddleButton ? tabAt(event->pos()) : -1;
    QTabBar::mousePressEvent(event);
}

void DocumentTabBar::mouseReleaseEvent(QMouseEvent *event)
{
    QTabBar::mouseReleaseEvent(event);
    const int pressed = std::exchange(pressedIndex, -1);
    if (event->button() == Qt::MiddleButton && pressed >= 0 && pressed == tabAt(event->pos()))
        Q_EMIT tabCloseRequested(pressed);
}
