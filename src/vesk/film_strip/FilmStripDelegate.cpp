#include "FilmStripDelegate.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>

namespace {

constexpr int kGap = 3;
constexpr int kRadius = 4;

} // namespace

QSize FilmStripDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    return option.decorationSize + QSize(4 * kGap, 3 * kGap + option.fontMetrics.height());
}

void FilmStripDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    const bool isSelected = option.state & QStyle::State_Selected;
    const QRect cell = option.rect.adjusted(kGap, 1, -kGap, -1);
    const int textHeight = option.fontMetrics.height();
    const QRect picture = cell.adjusted(kGap, kGap, -kGap, -kGap - textHeight);
    const QRect text(cell.left() + kGap, cell.bottom() - textHeight, cell.width() - 2 * kGap,
                     textHeight);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (isSelected) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(option.palette.highlight());
        painter->drawRoundedRect(cell, kRadius, kRadius);
    }
    index.data(Qt::DecorationRole).value<QIcon>().paint(painter, picture);
    painter->setPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    const QString name = option.fontMetrics.elidedText(index.data(Qt::DisplayRole).toString(),
                                                       Qt::ElideMiddle, text.width());
    // One base line for all names: scripts that take their letters from another font are higher.
    painter->drawText(text.center().x() - option.fontMetrics.horizontalAdvance(name) / 2,
                      text.top() + option.fontMetrics.ascent(), name);
    if (option.state & QStyle::State_HasFocus) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.rect = cell;
        QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter);
    }
    painter->restore();
}
