#pragma once

#include <QSortFilterProxyModel>

/// The order in which the film strip shows its pictures, and which of them. GUI thread.
class FilmStripOrder : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    enum class Key {
        Name,
        Time,  ///< when taken; what does not say comes last
        Rating ///< best first; a bracket stays together, where its best shot stands
    };
    Q_ENUM(Key)

    explicit FilmStripOrder(QObject *parent = nullptr);

    void setKey(Key key);
    Key key() const { return sortedBy; }
    void setResultsHidden(bool areHidden);
    bool areResultsHidden() const { return hidesResults; }

protected:
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    Key sortedBy = Key::Name;
    bool hidesResults = false;
};
