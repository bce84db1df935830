#include "FilmStripDelegate.h"
#include "FilmStripModel.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>

namespace {

constexpr int kGap = 3;
constexpr int kRadius = 4;
constexpr int kBandLine = 3;

/// The bracket of the row that stands so far from this one; -1 for none.
int bracketAt(const QModelIndex &index, int distance)
{
    const QModelIndex other = index.sibling(index.row() + distance, 0);
    return other.isValid() ? other.data(FilmStripModel::kBracketRole).toInt() : -1;
}

/// From cell to cell, with round ends at the first and the last shot.
void paintBand(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const int bracket = bracketAt(index, 0);
    if (bracket < 0)
        return;
    const int past = 2 * kRadius; // beyond the cell, where it is cut off
    const int left = bracketAt(index, -1) == bracket ? -past : 1;
    const int right = bracketAt(index, 1) == bracket ? past : -1;
    const QRect band = option.rect.adjusted(left, 0, right, -1);
    QColor ground = option.palette.color(QPalette::Text);
    ground.setAlpha(28);
    painter.setClipRect(option.rect);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(band, kRadius, kRadius);
    painter.setBrush(option.palette.highlight());
    painter.drawRoundedRect(QRect(band.left(), band.top(), band.width(), kBandLine), 1, 1);
    painter.setClipping(false);
}

/// One base line for all texts: scripts that take their letters from another font are higher.
void paintText(QPainter &painter, const QRect &line, const QString &text)
{
    const QFontMetrics metrics = painter.fontMetrics();
    const QString fitting = metrics.elidedText(text, Qt::ElideMiddle, line.width());
    painter.drawText(line.center().x() - metrics.horizontalAdvance(fitting) / 2,
                     line.top() + metrics.ascent(), fitting);
}

void paintStars(QPainter &painter, const QRect &picture, int stars)
{
    if (stars <= 0)
        return;
    const QString text(stars, QChar(0x2605));
    QRect ground = painter.fontMetrics().boundingRect(text).adjusted(-kGap, 0, kGap, 0);
    ground.moveBottomLeft(picture.bottomLeft());
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 160));
    painter.drawRoundedRect(ground, kRadius, kRadius);
    painter.setPen(QColor(255, 214, 90));
    painter.drawText(ground, Qt::AlignCenter, text);
}

} // namespace

QSize FilmStripDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    return option.decorationSize + QSize(4 * kGap, 4 * kGap + 2 * option.fontMetrics.height());
}

void FilmStripDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    const bool isSelected = option.state & QStyle::State_Selected;
    const QRect cell = option.rect.adjusted(kGap, kBandLine + 1, -kGap, -kGap);
    const int textHeight = option.fontMetrics.height();
    const QRect picture = cell.adjusted(kGap, kGap, -kGap, -kGap - 2 * textHeight);
    const QRect name(cell.left() + kGap, cell.bottom() - textHeight, cell.width() - 2 * kGap,
                     textHeight);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paintBand(*painter, option, index);
    if (isSelected) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(option.palette.highlight());
        painter->drawRoundedRect(cell, kRadius, kRadius);
    }
    index.data(Qt::DecorationRole).value<QIcon>().paint(painter, picture);
    paintStars(*painter, picture, index.data(FilmStripModel::kStarsRole).toInt());
    painter->setPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    paintText(*painter, name.translated(0, -textHeight),
              index.data(FilmStripModel::kExposureRole).toString());
    paintText(*painter, name, index.data(Qt::DisplayRole).toString());
    if (option.state & QStyle::State_HasFocus) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.rect = cell;
        QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter);
    }
    painter->restore();
}
