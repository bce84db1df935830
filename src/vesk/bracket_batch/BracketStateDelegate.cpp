#include "BracketStateDelegate.h"

#include <QApplication>
#include <QLocale>
#include <QPainter>

namespace {

constexpr int kWhole = 100;
constexpr int kBarLetters = 16;
constexpr int kRowMargin = 6;

} // namespace

void BracketStateDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const
{
    const QVariant progress = index.data(kProgressRole);
    if (!progress.isValid())
        return QStyledItemDelegate::paint(painter, option, index);
    QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
    QStyleOptionProgressBar bar;
    bar.rect = option.rect.adjusted(1, 1, -1, -1);
    bar.palette = option.palette;
    bar.fontMetrics = option.fontMetrics;
    bar.direction = option.direction;
    bar.state = option.state | QStyle::State_Horizontal;
    bar.maximum = kWhole;
    bar.progress = int(progress.toDouble() * kWhole);
    bar.text = QStringLiteral("%1%2").arg(bar.progress).arg(QLocale().percent());
    bar.textVisible = true;
    bar.textAlignment = Qt::AlignCenter;
    style->drawControl(QStyle::CE_ProgressBar, &bar, painter, option.widget);
}

QSize BracketStateDelegate::sizeHint(const QStyleOptionViewItem &option,
                                     const QModelIndex &index) const
{
    const QSize bar(kBarLetters * option.fontMetrics.averageCharWidth(),
                    option.fontMetrics.height() + kRowMargin);
    return QStyledItemDelegate::sizeHint(option, index).expandedTo(bar);
}
