#include "MergeSettings.h"

#include <stroke_parts.h>
#include <stroke_text.h>

#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace {

struct LookOption
{
    const char *name;
    double exposure::Look::*number;
};

constexpr LookOption kLookOptions[] = {
    {"exposure", &exposure::Look::exposure},      {"contrast", &exposure::Look::contrast},
    {"highlights", &exposure::Look::highlights},  {"shadows", &exposure::Look::shadows},
    {"black-point", &exposure::Look::blackPoint}, {"white-point", &exposure::Look::whitePoint},
    {"saturation", &exposure::Look::saturation}};

/// "--align none --crop --reference my shot.jpg" as align, crop and reference.
QHash<QString, QString> byName(const QString &options)
{
    QHash<QString, QString> values;
    const QStringList parts =
        (QLatin1Char(' ') + options).split(QStringLiteral(" --"), Qt::SkipEmptyParts);
    for (const QString &part : parts)
        values.insert(part.section(QLatin1Char(' '), 0, 0), part.section(QLatin1Char(' '), 1));
    return values;
}

/// -1 when the file is not among them.
int placeOf(const QString &name, const QStringList &paths)
{
    for (int i = 0; i < paths.size(); ++i) {
        if (!name.isEmpty() && QFileInfo(paths[i]).fileName() == name)
            return i;
    }
    return exposure::kAutomatic;
}

} // namespace

bool MergeSettings::isSameButLook(const MergeSettings &other) const
{
    const exposure::Options &mine = options;
    const exposure::Options &its = other.options;
    return method == other.method && mine.alignment == its.alignment &&
           mine.reference == its.reference && mine.ghosts == its.ghosts &&
           mine.ghostReference == its.ghostReference && mine.crop == its.crop &&
           strokes == other.strokes;
}

exposure::Options MergeSettings::optionsFor(QSize size) const
{
    exposure::Options all = options;
    if (strokes.empty() || size.isEmpty())
        return all;
    const double scale = paintedOn.isEmpty() ? 1.0 : double(size.width()) / paintedOn.width();
    brush::Parts parts = brush::parts(strokes, size, scale);
    all.takes = std::move(parts.takes);
    all.things = std::move(parts.things);
    return all;
}

MergeSettings MergeSettings::withoutLook() const
{
    MergeSettings plain = *this;
    plain.options.adjustment = {};
    return plain;
}

QString MergeSettings::asOptions(const QStringList &paths) const
{
    const auto nameOf = [&paths](int index) { return QFileInfo(paths.value(index)).fileName(); };
    QStringList words;
    if (!std::is_sorted(paths.cbegin(), paths.cend()))
        words += QStringLiteral("--keep-order");
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
    for (const LookOption &option : kLookOptions) {
        const double value = options.adjustment.*option.number;
        if (value != exposure::Look().*option.number)
            words += QStringLiteral("--%1 %2").arg(QLatin1String(option.name)).arg(value);
    }
    const QString painted = brush::toText(strokes);
    if (!painted.isEmpty() && painted.size() <= brush::kMostMarkText)
        words += QStringLiteral("--paint ") + painted;
    return words.join(u' ');
}

void MergeSettings::followOrder(const QStringList &paths, const QStringList &ordered)
{
    const auto follow = [&](int &place) {
        if (place >= 0)
            place = int(ordered.indexOf(paths.value(place)));
    };
    follow(options.reference);
    follow(options.ghostReference);
    for (brush::Stroke &stroke : strokes)
        follow(stroke.shot);
}

MergeSettings MergeSettings::fromMark(const QString &method, const QString &options,
                                      const QStringList &paths)
{
    MergeSettings settings;
    const QHash<QString, QString> values = byName(options);
    const QString align = values.value(QStringLiteral("align"));
    const QString ghosts = values.value(QStringLiteral("ghosts"));
    exposure::Options &merge = settings.options;
    if (method == QLatin1String("mean")) {
        settings.method = exposure::Method::Mean;
        merge.alignment = exposure::Alignment::Shift;
    }
    if (method == QLatin1String("radiance"))
        settings.method = exposure::Method::Radiance;
    if (align == QLatin1String("none"))
        merge.alignment = exposure::Alignment::None;
    if (align == QLatin1String("shift"))
        merge.alignment = exposure::Alignment::Shift;
    merge.crop = values.contains(QStringLiteral("crop"));
    merge.reference = placeOf(values.value(QStringLiteral("reference")), paths);
    merge.ghostReference = placeOf(ghosts, paths);
    if (ghosts == QLatin1String("off"))
        merge.ghosts = exposure::Ghosts::Keep;
    for (const LookOption &option : kLookOptions) {
        const QString name = QLatin1String(option.name);
        if (values.contains(name))
            merge.adjustment.*option.number = values.value(name).toDouble();
    }
    merge.adjustment = merge.adjustment.bounded();
    settings.strokes =
        brush::fromText(values.value(QStringLiteral("paint"))).value_or(brush::Strokes());
    return settings;
}
