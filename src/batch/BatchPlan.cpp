#include "BatchPlan.h"

#include "ResultMark.h"
#include "file_names.h"
#include "metadata_reader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

QStringList sortedNamesOf(const QStringList &paths)
{
    QStringList names;
    for (const QString &path : paths)
        names += QFileInfo(path).fileName();
    names.sort();
    return names;
}

QDateTime changedAt(const QString &path)
{
    return QFileInfo(file_names::ReadablePath(path).path()).lastModified();
}

/// FNV-1a: the same on every machine.
quint32 hashOf(const QByteArray &bytes)
{
    quint32 hash = 2166136261U;
    for (const char byte : bytes)
        hash = (hash ^ uchar(byte)) * 16777619U;
    return hash;
}

} // namespace

QStringList BatchJob::pictures() const
{
    QStringList paths;
    for (const Shot &shot : bracket.shots)
        paths += shot.path;
    return paths;
}

QStringList BatchJob::stamps() const
{
    QStringList texts;
    for (const Shot &shot : bracket.shots) {
        const file_names::ReadablePath readable(shot.path);
        const QFileInfo file(readable.path());
        texts +=
            QStringLiteral("%1@%2").arg(file.size()).arg(file.lastModified().toMSecsSinceEpoch());
    }
    return texts;
}

BatchPlan::BatchPlan(const QString &outputFolder, const QString &namePattern,
                     const MergeWay &wayOfMerging)
    : folder(outputFolder)
    , pattern(namePattern)
    , way(wayOfMerging)
{
}

QString BatchPlan::nameOf(const Bracket &bracket) const
{
    const Shot &first = bracket.shots.front();
    const QFileInfo firstFile(first.path);
    QString name = pattern;
    name.replace(QLatin1String("{date}"), first.takenAt.toString(QStringLiteral("yyyy-MM-dd")));
    name.replace(QLatin1String("{time}"), first.takenAt.toString(QStringLiteral("HHmmss")));
    name.replace(QLatin1String("{count}"), QString::number(bracket.shots.size()));
    name.replace(QLatin1String("{folder}"), firstFile.dir().dirName());
    name.replace(QLatin1String("{last}"), QFileInfo(bracket.shots.back().path).completeBaseName());
    name.replace(QLatin1String("{first}"), firstFile.completeBaseName());
    return name;
}

BatchJob BatchPlan::add(const Bracket &bracket)
{
    BatchJob job;
    job.bracket = bracket;
    job.output = QDir(folder).filePath(nameOf(bracket));
    job.state = outputs.contains(job.output) ? BatchJob::State::SameName : stateOf(job);
    outputs += job.output;
    return job;
}

BatchJob::State BatchPlan::stateOf(const BatchJob &job) const
{
    const file_names::ReadablePath readable(job.output);
    QFile file(readable.path());
    if (!file.exists())
        return BatchJob::State::New;
    const std::optional<ResultMark> mark =
        file.open(QIODevice::ReadOnly) ? result_mark::in(metadata::xmpIn(file)) : std::nullopt;
    if (!mark)
        return BatchJob::State::Foreign;
    // Without the names of its pictures a result tells them by its own name alone.
    const bool isOfOthers =
        !mark->sources.isEmpty() && sortedNamesOf(mark->sources) != sortedNamesOf(job.pictures());
    const bool isMadeOtherwise = mark->method != way.method || mark->options != way.options;
    return isOfOthers || isMadeOtherwise || arePicturesChanged(job) ? BatchJob::State::Changed
                                                                    : BatchJob::State::Unchanged;
}

bool BatchPlan::arePicturesChanged(const BatchJob &job) const
{
    const auto recorded = made.constFind(QFileInfo(job.output).fileName());
    if (recorded != made.cend())
        return *recorded != job.stamps();
    const QDateTime madeAt = changedAt(job.output);
    const QStringList pictures = job.pictures();
    return std::any_of(pictures.begin(), pictures.end(),
                       [&](const QString &path) { return changedAt(path) > madeAt; });
}

bool BatchPlan::belongsTo(const BatchJob &job, const Shard &shard)
{
    const QByteArray name = file_names::toBytes(QFileInfo(job.output).fileName());
    return hashOf(name) % quint32(shard.parts) == quint32(shard.part - 1);
}
