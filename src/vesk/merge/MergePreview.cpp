#include "MergePreview.h"

#include <QPainter>

namespace {

constexpr QSize kPreferredSize(640, 480);
constexpr int kMargin = 8;
constexpr int kGround = 0x26; // neutral, as around documents
constexpr int kInk = 0xd0;

} // namespace

MergePreview::MergePreview(QWidget *parent)
    : QWidget(parent)
{
    setMinimumSize(kPreferredSize / 4);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(tr("Preview"));
}

void MergePreview::setAfter(const QImage &picture)
{
    after = picture;
    update();
}

void MergePreview::setBefore(const QImage &picture)
{
    before = picture;
    update();
}

void MergePreview::showBefore(bool isBefore)
{
    isBeforeShown = isBefore;
    update();
}

void MergePreview::setText(const QString &text)
{
    said = text;
    update();
}

QSize MergePreview::sizeHint() const
{
    return kPreferredSize;
}

void MergePreview::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(kGround, kGround, kGround));
    painter.setPen(QColor(kInk, kInk, kInk));
    const QRect room = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
    if (shown().isNull()) {
        painter.drawText(room, Qt::AlignCenter | Qt::TextWordWrap, said);
        return;
    }
    QRect target(QPoint(), shown().size().scaled(room.size(), Qt::KeepAspectRatio));
    target.moveCenter(room.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target, shown());
    if (!isBeforeShown)
        return;
    const QRect label = painter.boundingRect(target, Qt::AlignTop | Qt::AlignHCenter, tr("Before"));
    painter.fillRect(label.adjusted(-kMargin, 0, kMargin, 4), QColor(0, 0, 0, 160));
    painter.drawText(label, Qt::AlignCenter, tr("Before"));
}
