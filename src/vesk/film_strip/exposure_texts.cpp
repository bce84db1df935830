#include "exposure_texts.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <cmath>

namespace {

struct ExposureTexts
{
    Q_DECLARE_TR_FUNCTIONS(ExposureTexts)
};

} // namespace

QString exposure_texts::time(double seconds)
{
    constexpr double kLongestFraction = 0.4;
    if (seconds <= 0)
        return {};
    if (seconds < kLongestFraction)
        //: An exposure time in seconds.
        return ExposureTexts::tr("1/%1 s").arg(qRound(1 / seconds));
    //: An exposure time in seconds.
    return ExposureTexts::tr("%1 s").arg(QLocale().toString(seconds, 'g', 2));
}

QString exposure_texts::stops(double stops)
{
    const double rounded = std::round(stops * 3) / 3; // cameras count in thirds
    const QString number = QLocale().toString(std::abs(rounded), 'f', 1);
    const QString sign = rounded > 0   ? QStringLiteral("+")
                         : rounded < 0 ? QStringLiteral("−")
                                       : QString();
    //: Stops of exposure, with a sign.
    return ExposureTexts::tr("%1 EV").arg(sign + number);
}

QString exposure_texts::settings(const Shot &shot)
{
    QStringList parts{time(shot.exposureSeconds)};
    if (shot.fNumber > 0)
        parts += QStringLiteral("f/") + QLocale().toString(shot.fNumber, 'g', 2);
    if (shot.iso > 0)
        parts += QStringLiteral("ISO %1").arg(shot.iso);
    parts.removeAll({});
    return parts.join(QStringLiteral("  "));
}
