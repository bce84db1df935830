#include "RemainingTime.h"

#include <algorithm>

std::optional<qint64> RemainingTime::milliseconds(qint64 elapsed) const
{
    if (done <= 0)
        return std::nullopt;
    return qint64(double(elapsed) / done * std::max(0.0, left));
}

QString RemainingTime::text(qint64 milliseconds)
{
    const qint64 seconds = (milliseconds + 999) / 1000;
    if (seconds < 90)
        return QStringLiteral("%1 s").arg(seconds);
    const qint64 minutes = (seconds + 59) / 60;
    if (minutes < 90)
        return QStringLiteral("%1 min").arg(minutes);
    return QStringLiteral("%1 h %2 min").arg(minutes / 60).arg(minutes % 60);
}
