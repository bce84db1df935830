#pragma once

#include <QStyledItemDelegate>

/// Paints how far a bracket is as a bar while it is being merged, and as words before and after.
/// GUI thread.
class BracketStateDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// 0..1 while it is being merged; no value otherwise.
    static constexpr int kProgressRole = Qt::UserRole + 1;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    /// Wide and high enough for the bar, whatever stands there.
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
