#pragma once

#include <QStyledItemDelegate>

/// Paints a thumbnail over its name. What is selected gets a coloured ground: the picture itself
/// keeps its colours. GUI thread.
class FilmStripDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
