#include "BracketBatch.h"

#include <BatchLog.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QStandardPaths>

namespace {

/// Beside the editor, or where programs are.
QString program()
{
    const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/veskhdr");
    return QFileInfo(beside).isExecutable()
               ? beside
               : QStandardPaths::findExecutable(QStringLiteral("veskhdr"));
}

QHash<QString, QStringList> stampsIn(const BatchLog &log)
{
    QHash<QString, QStringList> stamps;
    const QHash<QString, QJsonObject> records = log.read();
    for (auto record = records.cbegin(); record != records.cend(); ++record) {
        QStringList texts;
        const QJsonArray array = record->value(QLatin1String("stamps")).toArray();
        for (const QJsonValue &stamp : array)
            texts += stamp.toString();
        stamps.insert(record.key(), texts);
    }
    return stamps;
}

/// What takes the time of a merge.
double workOf(const BatchJob &job)
{
    return double(job.bracket.shots.size());
}

/// Of what the program says the last line, without its own name.
QString reasonOf(const MergeProcess::End &end)
{
    const QStringList lines =
        QString::fromUtf8(end.errors).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return lines.isEmpty() ? QString() : QString(lines.last()).remove(QStringLiteral("veskhdr: "));
}

} // namespace

QStringList BatchChoices::words() const
{
    QStringList all{QStringLiteral("--method"), settings.methodWord()};
    all += settings.asOptions({}).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (suffix == QLatin1String("jpg"))
        all += {QStringLiteral("--quality"), QString::number(quality)};
    return all;
}

BracketBatch::BracketBatch(QObject *parent)
    : QObject(parent)
{
    files.setMaxThreadCount(1);
}

BracketBatch::~BracketBatch()
{
    files.clear();
    files.waitForDone();
    if (process)
        process->stop(); // it cleans up; MergeProcess waits for it
}

void BracketBatch::start(const std::vector<Bracket> &brackets, const BatchChoices &how)
{
    choices = how;
    jobs.clear();
    current = 0;
    running = true;
    paused = false;
    stopping = false;
    rest = {};
    fraction = 0;
    spent = 0;
    files.start([this, brackets] { plan(brackets); });
}

/// On the thread for files.
void BracketBatch::plan(const std::vector<Bracket> &brackets)
{
    QDir().mkpath(choices.folder);
    QStringList words = choices.words();
    words.erase(words.begin(), words.begin() + 2); // marks tell the method apart from the options
    BatchPlan planned(choices.folder, QStringLiteral("{first} merged.") + choices.suffix,
                      {choices.settings.methodWord(), words.join(QLatin1Char(' '))});
    planned.remember(stampsIn(BatchLog(BatchLog::pathIn(choices.folder))));
    std::vector<BatchJob> made;
    for (const Bracket &bracket : brackets)
        made.push_back(planned.add(bracket));
    QMetaObject::invokeMethod(
        this,
        [this, made] {
            jobs = made;
            for (const BatchJob &job : jobs)
                rest.expect(workOf(job));
            next();
        },
        Qt::QueuedConnection);
}

void BracketBatch::next()
{
    while (current < jobs.size() && !stopping && !paused) {
        if (!settle(jobs[current]))
            return merge(jobs[current]);
        rest.drop(workOf(jobs[current]));
        ++current;
    }
    if (!paused || stopping)
        end();
}

/// True when there is nothing to merge.
bool BracketBatch::settle(const BatchJob &job)
{
    switch (job.state) {
    case BatchJob::State::New:
    case BatchJob::State::Changed:
        return false;
    case BatchJob::State::Unchanged:
        tell(State::DoneAlready);
        return true;
    case BatchJob::State::Foreign:
        tell(State::Failed, tr("another file of this name is there"));
        return true;
    case BatchJob::State::SameName:
        break;
    }
    tell(State::Failed, tr("another bracket gets the same name"));
    return true;
}

void BracketBatch::merge(const BatchJob &job)
{
    QStringList words = QStringList{QStringLiteral("merge")} + choices.words();
    if (job.state == BatchJob::State::Changed)
        words += QStringLiteral("--force");
    words += QStringList{QStringLiteral("-o"), job.output, QStringLiteral("--")} + job.pictures();
    process = std::make_unique<MergeProcess>(program(), words, 0);
    connect(process.get(), &MergeProcess::ended, this, &BracketBatch::takeEnd,
            Qt::QueuedConnection);
    connect(process.get(), &MergeProcess::progressed, this, &BracketBatch::takeProgress);
    tell(State::Merging);
    timer.start();
    process->start();
}

void BracketBatch::takeProgress(double done)
{
    fraction = done;
    Q_EMIT progressed(int(current), done);
}

std::optional<qint64> BracketBatch::remaining() const
{
    if (!process)
        return rest.milliseconds(spent);
    RemainingTime now = rest;
    now.add(fraction * workOf(jobs[current]));
    return now.milliseconds(spent + timer.elapsed());
}

void BracketBatch::takeEnd(const MergeProcess::End &end)
{
    if (end.exitCode == 0) {
        record(jobs[current], end.milliseconds);
        tell(State::Merged);
    } else if (stopping) {
        tell(State::Stopped);
    } else {
        tell(State::Failed, reasonOf(end));
    }
    rest.add(workOf(jobs[current]));
    spent += end.milliseconds;
    fraction = 0;
    process.reset();
    ++current;
    next();
}

/// In the report that 'veskhdr batch' keeps, too.
void BracketBatch::record(const BatchJob &job, qint64 milliseconds)
{
    const QJsonObject object{
        {QStringLiteral("output"), job.output},
        {QStringLiteral("status"), QStringLiteral("merged")},
        {QStringLiteral("exitCode"), 0},
        {QStringLiteral("milliseconds"), milliseconds},
        {QStringLiteral("pictures"), QJsonArray::fromStringList(job.pictures())},
        {QStringLiteral("stamps"), QJsonArray::fromStringList(job.stamps())},
    };
    files.start(
        [folder = choices.folder, object] { BatchLog(BatchLog::pathIn(folder)).append(object); });
}

void BracketBatch::tell(State state, const QString &text)
{
    Q_EMIT told(int(current), state, text, jobs[current].output);
}

void BracketBatch::pause()
{
    paused = true;
}

void BracketBatch::goOn()
{
    paused = false;
    if (running && !process && !jobs.empty())
        next();
}

void BracketBatch::stop()
{
    stopping = true;
    if (process)
        process->stop();
    else if (running && !jobs.empty())
        next();
}

void BracketBatch::end()
{
    for (; current < jobs.size(); ++current)
        tell(State::Stopped);
    running = false;
    paused = false;
    Q_EMIT finished();
}
