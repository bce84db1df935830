#include "FilmStripOrder.h"
#include "FilmStripModel.h"

#include <QDateTime>

FilmStripOrder::FilmStripOrder(QObject *parent)
    : QSortFilterProxyModel(parent)
{
    setDynamicSortFilter(true);
    sort(0);
}

void FilmStripOrder::setKey(Key key)
{
    sortedBy = key;
    invalidate();
}

void FilmStripOrder::setResultsHidden(bool areHidden)
{
    hidesResults = areHidden;
    invalidateFilter();
}

bool FilmStripOrder::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    return !hidesResults ||
           !sourceModel()->index(row, 0, parent).data(FilmStripModel::kResultRole).toBool();
}

/// The rows of the source stand by name.
bool FilmStripOrder::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    if (sortedBy == Key::Time) {
        const QDateTime one = left.data(FilmStripModel::kTimeRole).toDateTime();
        const QDateTime other = right.data(FilmStripModel::kTimeRole).toDateTime();
        if (one != other)
            return one.isValid() && (!other.isValid() || one < other);
    }
    if (sortedBy == Key::Rating) {
        const int one = left.data(FilmStripModel::kBestStarsRole).toInt();
        const int other = right.data(FilmStripModel::kBestStarsRole).toInt();
        if (one != other)
            return one > other;
    }
    return left.row() < right.row();
}
