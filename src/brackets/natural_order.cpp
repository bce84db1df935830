#include "natural_order.h"

#include <QCollator>

bool brackets::isBeforeNaturally(const QString &one, const QString &other)
{
    static thread_local const QCollator collator = [] {
        QCollator natural{QLocale(QLocale::English)}; // the C locale knows no numbers
        natural.setNumericMode(true);
        return natural;
    }();
    const int order = collator.compare(one, other);
    return order != 0 ? order < 0 : one < other;
}
