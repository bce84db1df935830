#include "MergeReport.h"

#include "free_memory.h"
#include "stroke_text.h"
#include "transform_report.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdlib>

namespace {

QJsonObject pointToJson(QPoint point)
{
    return {{QStringLiteral("x"), point.x()}, {QStringLiteral("y"), point.y()}};
}

QJsonObject sizeToJson(QSize size)
{
    return {{QStringLiteral("width"), size.width()}, {QStringLiteral("height"), size.height()}};
}

QJsonArray shiftsToJson(const MergeReport &report)
{
    QJsonArray shifts;
    for (size_t i = 0; i < report.pairShifts.size(); ++i)
        shifts.append(QJsonObject{
            {QStringLiteral("picture"), report.inputs[static_cast<int>(i) + 1]},
            {QStringLiteral("pair"), pointToJson(report.pairShifts[i])},
            {QStringLiteral("sum"), pointToJson(report.summedShifts[i])},
            {QStringLiteral("atLimit"), report.isAtLimit(i)},
        });
    return shifts;
}

QJsonArray conversionsToJson(const MergeReport &report)
{
    QJsonArray conversions;
    for (const picture_set::Conversion &conversion : report.colours.conversions)
        conversions.append(
            QJsonObject{{QStringLiteral("picture"), report.inputs[conversion.picture]},
                        {QStringLiteral("from"), conversion.from}});
    return conversions;
}

/// The parts that shots were chosen for, when there are any.
void addParts(const MergeReport &report, QJsonObject &object)
{
    QJsonArray takes;
    for (const TakeFile &take : report.takes)
        takes.append(QJsonObject{{QStringLiteral("picture"), report.inputs[take.shot]},
                                 {QStringLiteral("mask"), take.mask}});
    if (!takes.isEmpty())
        object.insert(QStringLiteral("takes"), takes);
    if (!report.strokes.empty())
        object.insert(QStringLiteral("paint"), brush::toText(report.strokes));
}

/// How levels became light.
void addLight(const exposure::Report &report, QJsonObject &object)
{
    QJsonArray exposures;
    for (const double exposure : report.exposures)
        exposures.append(exposure);
    object.insert(QStringLiteral("exposures"), exposures);
    object.insert(QStringLiteral("exposuresKnown"), report.areExposuresKnown);
    object.insert(QStringLiteral("curve"), report.isCurveRecovered ? QStringLiteral("recovered")
                                                                   : QStringLiteral("profile"));
}

QJsonObject timesToJson(const MergeReport::Times &times)
{
    return {
        {QStringLiteral("decode"), times.decode}, {QStringLiteral("align"), times.align},
        {QStringLiteral("ghosts"), times.ghosts}, {QStringLiteral("merge"), times.merge},
        {QStringLiteral("encode"), times.encode}, {QStringLiteral("total"), times.total},
    };
}

QString pointToText(QPoint point)
{
    return QStringLiteral("(%1, %2)").arg(point.x()).arg(point.y());
}

QString timeLine(const QString &step, qint64 milliseconds)
{
    return QStringLiteral("%1 %2 ms\n").arg(step, -7).arg(milliseconds, 6);
}

QString conversionLines(const MergeReport &report)
{
    QString lines;
    for (const picture_set::Conversion &conversion : report.colours.conversions)
        lines += QStringLiteral("colours %1: converted from %2\n")
                     .arg(report.inputs[conversion.picture], conversion.from);
    return lines;
}

} // namespace

bool MergeReport::isAtLimit(size_t i) const
{
    const QPoint shift = pairShifts[i];
    return std::abs(shift.x()) >= largestFindableShift ||
           std::abs(shift.y()) >= largestFindableShift;
}

QString command_line::toJson(const MergeReport &report)
{
    const bool isMean = report.method == MergeMethod::Mean;
    QJsonObject object{
        {QStringLiteral("method"), wordOf(report.method)},
        {QStringLiteral("reference"), report.inputs[report.fusion.reference]},
        {QStringLiteral("inputs"), QJsonArray::fromStringList(report.inputs)},
        {QStringLiteral("size"), sizeToJson(report.area.size())},
        {QStringLiteral("area"), areaToJson(report.area)},
        {QStringLiteral("bitsPerChannel"), report.bitsPerChannel},
        {QStringLiteral("colourSpace"), report.outputSpace},
        {QStringLiteral("aligned"), report.isAligned},
        {QStringLiteral("shifts"), shiftsToJson(report)},
        {QStringLiteral("largestFindableShift"), report.largestFindableShift},
        {QStringLiteral("device"),
         report.device.isEmpty() ? QStringLiteral("processor") : report.device},
        {QStringLiteral("milliseconds"), timesToJson(report.milliseconds)},
        {QStringLiteral("peakMemory"), free_memory::peakOfProcess()},
        {QStringLiteral("output"), report.output},
    };
    if (!isMean) {
        object.insert(QStringLiteral("converted"), conversionsToJson(report));
        object.insert(QStringLiteral("transforms"),
                      transformsToJson(report.inputs, report.fusion.transforms));
        object.insert(QStringLiteral("ghosts"), report.fusion.hasGhosts);
        object.insert(QStringLiteral("ghostMask"),
                      report.ghostMask.isEmpty() ? QJsonValue() : QJsonValue(report.ghostMask));
    }
    addParts(report, object);
    if (report.headroom > 0.0)
        object.insert(QStringLiteral("headroom"), report.headroom);
    if (report.method == MergeMethod::Radiance || report.headroom > 0.0)
        addLight(report.fusion, object);
    return QString::fromUtf8(QJsonDocument(object).toJson()).trimmed();
}

QString command_line::toLines(const MergeReport &report)
{
    QString lines = timeLine(QStringLiteral("decode"), report.milliseconds.decode);
    if (report.isAligned)
        lines += timeLine(QStringLiteral("align"), report.milliseconds.align);
    if (report.method != MergeMethod::Mean)
        lines += timeLine(QStringLiteral("ghosts"), report.milliseconds.ghosts);
    lines += timeLine(QStringLiteral("merge"), report.milliseconds.merge) +
             timeLine(QStringLiteral("encode"), report.milliseconds.encode) +
             timeLine(QStringLiteral("total"), report.milliseconds.total);
    for (size_t i = 0; i < report.pairShifts.size(); ++i)
        lines += QStringLiteral("shift   %1: %2 from the picture before, %3 from the first\n")
                     .arg(report.inputs[static_cast<int>(i) + 1], pointToText(report.pairShifts[i]),
                          pointToText(report.summedShifts[i]));
    return lines + conversionLines(report) +
           transformLines(report.inputs, report.fusion.transforms) +
           QStringLiteral("output  %1: %2 x %3 pixels")
               .arg(report.output)
               .arg(report.area.width())
               .arg(report.area.height());
}

QString command_line::toSummary(const MergeReport &report)
{
    return QStringLiteral("%1: %2 x %3 pixels from %4 pictures in %5 s")
        .arg(report.output)
        .arg(report.area.width())
        .arg(report.area.height())
        .arg(report.inputs.size())
        .arg(static_cast<double>(report.milliseconds.total) / 1000.0, 0, 'f', 1);
}
