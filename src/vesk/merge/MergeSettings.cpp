#include "MergeSettings.h"

#include <QFileInfo>

bool MergeSettings::isSameButLook(const MergeSettings &other) const
{
    const exposure::Options &mine = options;
    const exposure::Options &its = other.options;
    return method == other.method && mine.alignment == its.alignment &&
           mine.reference == its.reference && mine.ghosts == its.ghosts &&
           mine.ghostReference == its.ghostReference && mine.crop == its.crop;
}

QString MergeSettings::asOptions(const QStringList &paths) const
{
    const auto nameOf = [&paths](int index) { return QFileInfo(paths.value(index)).fileName(); };
    QStringList words;
    const auto addNumber = [&words](const char *name, double value, double usual) {
        if (value != usual)
            words += QStringLiteral("--%1 %2").arg(QLatin1String(name)).arg(value);
    };
    if (options.alignment == exposure::Alignment::None)
        words += QStringLiteral("--align none");
    if (options.alignment == exposure::Alignment::Shift && !isMean())
        words += QStringLiteral("--align shift");
    if (options.crop)
        words += QStringLiteral("--crop");
    if (isMean())
        return words.join(u' ');
    if (options.reference >= 0)
        words += QStringLiteral("--reference ") + nameOf(options.reference);
    if (options.ghosts == exposure::Ghosts::Keep)
        words += QStringLiteral("--ghosts off");
    else if (options.ghostReference >= 0)
        words += QStringLiteral("--ghosts ") + nameOf(options.ghostReference);
    addNumber("exposure", options.adjustment.exposure, 0.0);
    addNumber("contrast", options.adjustment.contrast, 0.0);
    addNumber("highlights", options.adjustment.highlights, 0.0);
    addNumber("shadows", options.adjustment.shadows, 0.0);
    addNumber("black-point", options.adjustment.blackPoint, 0.0);
    addNumber("white-point", options.adjustment.whitePoint, 1.0);
    addNumber("saturation", options.adjustment.saturation, 1.0);
    return words.join(u' ');
}
