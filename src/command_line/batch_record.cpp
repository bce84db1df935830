#include "batch_record.h"

#include "file_names.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>

#include <csignal>
#include <cstring>

namespace {

/// Stops, without the noise behind the decimal point that thirds leave.
QJsonValue inHundredths(const std::optional<double> &stops)
{
    return stops ? QJsonValue(qRound(*stops * 100) / 100.0) : QJsonValue();
}

void addExposures(const Bracket &bracket, QJsonObject &record)
{
    QJsonArray biases;
    QJsonArray times;
    for (const Shot &shot : bracket.shots) {
        biases.append(inHundredths(shot.exposureBias));
        times.append(shot.exposureSeconds > 0 ? QJsonValue(shot.exposureSeconds) : QJsonValue());
    }
    record.insert(QStringLiteral("exposureBias"), biases);
    record.insert(QStringLiteral("exposureTime"), times);
}

/// How sure the alignment of each picture is, in the order of the bracket.
QJsonArray confidencesOf(const QJsonObject &merge, const QStringList &pictures)
{
    QHash<QString, QJsonValue> confidenceOf;
    const QJsonArray transforms = merge.value(QLatin1String("transforms")).toArray();
    for (const QJsonValue &transform : transforms)
        confidenceOf.insert(transform.toObject().value(QLatin1String("picture")).toString(),
                            transform.toObject().value(QLatin1String("confidence")));
    QJsonArray confidences;
    for (const QString &picture : pictures)
        confidences.append(confidenceOf.value(picture, QJsonValue()));
    return confidences;
}

} // namespace

QJsonObject batch_record::of(const BatchJob &job, const char *status, ExitCode code)
{
    QJsonObject record{
        {QStringLiteral("output"), job.output},
        {QStringLiteral("status"), QLatin1String(status)},
        {QStringLiteral("exitCode"), int(code)},
        {QStringLiteral("milliseconds"), 0},
        {QStringLiteral("pictures"), QJsonArray::fromStringList(job.pictures())},
        {QStringLiteral("warnings"), QJsonArray::fromStringList(job.bracket.warnings)},
    };
    addExposures(job.bracket, record);
    return record;
}

QJsonObject batch_record::ofMerge(const BatchJob &job, const char *status, ExitCode code,
                                  const MergeProcess::End &end)
{
    QJsonObject record = of(job, status, code);
    const QJsonObject merge = QJsonDocument::fromJson(end.output).object();
    record.insert(QStringLiteral("milliseconds"), end.milliseconds);
    record.insert(QStringLiteral("messages"), QJsonArray::fromStringList(messagesOf(end)));
    record.insert(QStringLiteral("steps"), merge.value(QLatin1String("milliseconds")));
    record.insert(QStringLiteral("reference"), merge.value(QLatin1String("reference")));
    record.insert(QStringLiteral("confidence"), confidencesOf(merge, job.pictures()));
    record.insert(QStringLiteral("peakMemory"), merge.value(QLatin1String("peakMemory")));
    record.insert(QStringLiteral("stamps"), QJsonArray::fromStringList(job.stamps()));
    record.insert(QStringLiteral("at"), QDateTime::currentDateTimeUtc().toString(Qt::ISODate));
    return record;
}

ExitCode batch_record::codeOf(const MergeProcess::End &end)
{
    if (end.exitCode >= 0)
        return ExitCode(end.exitCode);
    return end.signal == SIGKILL ? ExitCode::NoMemory : ExitCode::BadData;
}

QStringList batch_record::messagesOf(const MergeProcess::End &end)
{
    static const QByteArray own("veskhdr: ");
    QStringList messages;
    for (const QByteArray &line : end.errors.split('\n')) {
        if (!line.isEmpty())
            messages += file_names::fromBytes(line.startsWith(own) ? line.mid(own.size()) : line);
    }
    if (end.signal != 0)
        messages += QStringLiteral("its merge was ended by signal %1").arg(end.signal);
    else if (end.exitCode < 0)
        messages += QStringLiteral("its merge cannot be started");
    return messages;
}

qint64 batch_record::peakMemoryOf(const QJsonObject &record)
{
    return record.value(QLatin1String("peakMemory")).toInteger();
}
