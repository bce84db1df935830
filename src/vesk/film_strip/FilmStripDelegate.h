#pragma once

#include <QStyledItemDelegate>

/// Paints a thumbnail over its exposure and its name, its stars on it, and a band behind those that
/// are one bracket. What is selected gets a coloured ground: the picture itself keeps its colours.
/// GUI thread.
class FilmStripDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
