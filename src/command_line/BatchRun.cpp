#include "BatchRun.h"

#include "StopSignals.h"
#include "batch_record.h"
#include "console.h"
#include "file_names.h"
#include "free_memory.h"
#include "interrupt_cleanup.h"
#include "parallel_rows.h"
#include "temporary_files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {

QHash<QString, QStringList> stampsIn(const QHash<QString, QJsonObject> &records)
{
    QHash<QString, QStringList> stamps;
    for (auto record = records.cbegin(); record != records.cend(); ++record) {
        if (record->value(QLatin1String("status")).toString() != QLatin1String("merged"))
            continue;
        QStringList texts;
        const QJsonArray array = record->value(QLatin1String("stamps")).toArray();
        for (const QJsonValue &stamp : array)
            texts += stamp.toString();
        stamps.insert(record.key(), texts);
    }
    return stamps;
}

/// Pixels to be worked on, in millions: what the time goes by.
double effortOf(const BatchJob &job)
{
    double megapixels = 0;
    for (const Shot &shot : job.bracket.shots)
        megapixels += double(shot.size.width()) * shot.size.height() / 1e6;
    return std::max(megapixels, 0.1);
}

QStringList mergeWords(const BatchOptions &options, const BatchJob &job)
{
    QStringList words{QStringLiteral("merge"), QStringLiteral("--json")};
    words += options.mergeWords;
    if (job.state == BatchJob::State::Changed)
        words += QStringLiteral("--force");
    return words + QStringList{QStringLiteral("-o"), job.output, QStringLiteral("--")} +
           job.pictures();
}

} // namespace

BatchRun::BatchRun(const BatchOptions &batchOptions)
    : options(batchOptions)
    , log(BatchLog::pathIn(options.output))
    , records(log.read())
    , plan(options.output, options.name, options.way)
    , budget(options.memory)
{
    constexpr int kRetryMs = 200;
    constexpr int kSecondMs = 1000;
    retry.setInterval(kRetryMs);
    second.setInterval(kSecondMs);
    connect(&retry, &QTimer::timeout, this, &BatchRun::tryPostponed);
    connect(&second, &QTimer::timeout, this, &BatchRun::showProgress);
    sheet.title = options.output;
}

/// The whole plan stands before the first merge: results may lie in a folder that is searched.
ExitCode BatchRun::run()
{
    clock.start();
    if (options.isWatching) {
        watch = std::make_unique<BatchWatch>(options.search, options.restSeconds);
        connect(watch.get(), &BatchWatch::looked, this, &BatchRun::look);
    } else {
        search();
    }
    const bool hasWork = watch || !queue.empty();
    if (!options.isDryRun)
        temporary_files::sweep(options.output);
    if (!options.isDryRun && hasWork && !makeFolder())
        return ExitCode::CannotCreate;
    if (hasWork)
        workAll();
    bar.clear();
    if (options.html && !options.isDryRun)
        writeSheet();
    if (options.isDryRun && !options.json)
        console::print(QStringLiteral("%1 to merge, as many at a time as fit into %2")
                           .arg(all)
                           .arg(free_memory::text(options.memory)));
    return code;
}

bool BatchRun::makeFolder()
{
    if (!QDir().mkpath(options.output)) {
        console::complain(options.output, QStringLiteral("the folder cannot be made"));
        return false;
    }
    return true;
}

void BatchRun::search()
{
    plan.remember(stampsIn(records));
    keep(BracketSearch::run(
        options.search, [this](const Bracket &bracket) { add(bracket); },
        [this](const QString &path, const QString &reason) {
            sheet.leftOut.append({path, reason});
            say(path, QStringLiteral("left out, ") + reason);
        }));
}

void BatchRun::add(const Bracket &bracket)
{
    BatchJob job = plan.add(bracket);
    showInSheet(job, batch_record::of(job, "planned", ExitCode::Ok));
    if (!BatchPlan::belongsTo(job, options.shard) || settle(job))
        return;
    ++all;
    remaining.expect(effortOf(job));
    auto work = std::make_unique<Work>();
    work->job = std::move(job);
    work->estimate = estimateOf(work->job);
    queue.push_back(std::move(work));
}

/// True when nothing is to be merged.
bool BatchRun::settle(const BatchJob &job)
{
    for (const QString &warning : job.bracket.warnings)
        say(job.output, QStringLiteral("warning: ") + warning);
    if (job.state == BatchJob::State::Unchanged)
        tell(job, batch_record::of(job, "unchanged", ExitCode::Ok));
    else if (job.state == BatchJob::State::Foreign || job.state == BatchJob::State::SameName)
        refuse(job);
    else if (options.isDryRun)
        planDry(job);
    else
        return false;
    return true;
}

void BatchRun::refuse(const BatchJob &job)
{
    say(job.output, job.state == BatchJob::State::Foreign
                        ? QStringLiteral("is there, and no result of veskhdr")
                        : QStringLiteral("another bracket has this name, --name can tell them "
                                         "apart"));
    keep(ExitCode::CannotCreate);
    tell(job, batch_record::of(job, "failed", ExitCode::CannotCreate));
}

void BatchRun::planDry(const BatchJob &job)
{
    ++all;
    QJsonObject record = batch_record::of(job, "planned", ExitCode::Ok);
    record.insert(QStringLiteral("memory"), estimateOf(job));
    tell(job, record);
}

qint64 BatchRun::estimateOf(const BatchJob &job) const
{
    merge_memory::Needs needs = merge_memory::of(job.bracket);
    needs.method = options.needs.method;
    needs.isResultDeep = options.needs.isResultDeep;
    needs.threads = parallel::processorCount();
    return merge_memory::peakBytes(needs);
}

void BatchRun::workAll()
{
    clock.start();
    budget = MemoryBudget(std::max<qint64>(0, options.memory - free_memory::peakOfProcess()));
    const StopSignals stopSignals;
    connect(&stopSignals, &StopSignals::asked, this, &BatchRun::stop);
    second.start();
    if (watch)
        watch->start();
    QTimer::singleShot(0, this, &BatchRun::startMore);
    loop.exec();
    second.stop();
    const int received = StopSignals::received();
    if (received == 0 || watch)
        return;
    bar.clear();
    ::signal(received, SIG_DFL);
    ::raise(received);
}

/// One after the other; what does not fit into the memory now lets smaller ones pass.
void BatchRun::startMore()
{
    for (auto place = queue.begin(); place != queue.end();) {
        if (isStopping || int(running.size()) >= options.jobs)
            break;
        startOne(place++);
    }
    if (!postponed.empty() && !retry.isActive())
        retry.start();
    readAhead();
    showProgress();
    quitWhenIdle();
}

/// Moves it to another list, unless it must wait for memory.
void BatchRun::startOne(WorkList::iterator place)
{
    Work &work = **place;
    work.taken = budget.corrected(work.estimate);
    if (!budget.take(work.taken))
        return;
    if (!work.claim.take(work.job.output)) {
        budget.giveBack(work.taken);
        postponed.splice(postponed.end(), queue, place);
        return;
    }
    // Another process may have been at it since the plan was made.
    work.job.state = plan.stateOf(work.job);
    if (work.job.state == BatchJob::State::Unchanged ||
        work.job.state == BatchJob::State::Foreign) {
        budget.giveBack(work.taken);
        finish(work.job);
        queue.erase(place);
        return;
    }
    running.splice(running.end(), queue, place);
    launch(work);
}

/// There is nothing to be done any more.
void BatchRun::finish(const BatchJob &job)
{
    ++done;
    remaining.drop(effortOf(job));
    if (job.state == BatchJob::State::Foreign)
        refuse(job);
    else
        tell(job, batch_record::of(job, "unchanged", ExitCode::Ok));
}

void BatchRun::launch(Work &work)
{
    if (work.taken > budget.bytes())
        say(work.job.output,
            QStringLiteral("warning: needs about %1 of memory, more than the %2 "
                           "allowed; it is merged alone")
                .arg(free_memory::text(work.taken), free_memory::text(options.memory)));
    work.process =
        std::make_unique<MergeProcess>(QCoreApplication::applicationFilePath(),
                                       mergeWords(options, work.job), threadsFor(work.taken));
    connect(work.process.get(), &MergeProcess::ended, this,
            [this, &work](const MergeProcess::End &how) { end(work, how); });
    work.process->start();
}

/// So that all cores have work with as many merges as can run side by side.
int BatchRun::threadsFor(qint64 taken) const
{
    const int cores = parallel::processorCount();
    const auto fitting =
        int(std::clamp<qint64>(budget.bytes() / std::max<qint64>(1, taken), 1, options.jobs));
    const int atOnce = std::clamp(int(queue.size() + running.size()), 1, fitting);
    return std::max(1, (cores + atOnce - 1) / atOnce);
}

/// The system reads what comes next while the cores are busy.
void BatchRun::readAhead() const
{
#ifdef POSIX_FADV_WILLNEED
    if (queue.empty())
        return;
    for (const Shot &shot : queue.front()->job.bracket.shots) {
        const int file =
            ::open(file_names::toBytes(shot.path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        if (file < 0)
            continue;
        ::posix_fadvise(file, 0, 0, POSIX_FADV_WILLNEED);
        ::close(file);
    }
#endif
}

void BatchRun::end(Work &work, const MergeProcess::End &how)
{
    work.process.release()->deleteLater(); // it is just telling this
    budget.giveBack(work.taken);
    const bool isCutShort = isStopping && how.exitCode != 0;
    if (!isCutShort)
        tellEnd(work.job, work.estimate, how);
    work.claim.release();
    running.remove_if([&work](const auto &other) { return other.get() == &work; });
    startMore();
}

void BatchRun::tellEnd(BatchJob &job, qint64 estimate, const MergeProcess::End &how)
{
    const ExitCode own = batch_record::codeOf(how);
    const auto wasMade = [&] {
        job.state = plan.stateOf(job);
        return job.state == BatchJob::State::Unchanged;
    };
    // Where files cannot be locked another process may have been faster.
    if (own == ExitCode::CannotCreate && wasMade())
        return finish(job);
    ++done;
    remaining.add(effortOf(job));
    keep(own);
    const QStringList messages = batch_record::messagesOf(how);
    for (const QString &message : messages)
        say({}, message);
    const QJsonObject record =
        batch_record::ofMerge(job, own == ExitCode::Ok ? "merged" : "failed", own, how);
    budget.learn(estimate, batch_record::peakMemoryOf(record));
    records.insert(QFileInfo(job.output).fileName(), record);
    if (!log.append(record)) {
        say(BatchLog::pathIn(options.output), QStringLiteral("cannot be written"));
        keep(ExitCode::WriteFailed);
    }
    tell(job, record);
}

/// The other process has made them by now, or has died.
void BatchRun::tryPostponed()
{
    retry.stop();
    queue.splice(queue.end(), postponed);
    startMore();
}

void BatchRun::stop()
{
    isStopping = true;
    queue.clear();
    postponed.clear();
    for (const auto &work : running)
        work->process->stop();
    quitWhenIdle();
}

void BatchRun::quitWhenIdle()
{
    const bool isIdle = queue.empty() && running.empty() && postponed.empty();
    if (isIdle && (isStopping || !watch))
        loop.quit();
}

/// What has come to rest is merged; what changes later is merged anew.
void BatchRun::look()
{
    const auto isNew = [this](const Bracket &bracket) {
        const QString key = bracket.shots.front().path;
        return watch->isComplete(bracket) && handled.value(key) != BatchJob{bracket, {}}.stamps();
    };
    const std::vector<Bracket> &found = watch->found();
    if (isStopping || std::none_of(found.begin(), found.end(), isNew))
        return;
    plan = BatchPlan(options.output, options.name, options.way);
    plan.remember(stampsIn(records));
    for (const Bracket &bracket : found) {
        if (!isNew(bracket) || isUnderWay(bracket)) {
            plan.add(bracket); // its name is taken
            continue;
        }
        handled.insert(bracket.shots.front().path, BatchJob{bracket, {}}.stamps());
        add(bracket);
    }
    startMore();
}

bool BatchRun::isUnderWay(const Bracket &bracket) const
{
    const QString &first = bracket.shots.front().path;
    const auto isIt = [&first](const auto &work) {
        return work->job.bracket.shots.front().path == first;
    };
    return std::any_of(queue.begin(), queue.end(), isIt) ||
           std::any_of(running.begin(), running.end(), isIt) ||
           std::any_of(postponed.begin(), postponed.end(), isIt);
}

void BatchRun::tell(const BatchJob &job, const QJsonObject &record)
{
    showInSheet(job, record);
    bar.clear();
    const QString status = record.value(QLatin1String("status")).toString();
    if (options.json)
        console::print(QString::fromUtf8(QJsonDocument(record).toJson(QJsonDocument::Compact)));
    else if (status == QLatin1String("planned"))
        console::print(QStringLiteral("%1: planned, %2 shots, about %3 of memory")
                           .arg(job.output)
                           .arg(job.bracket.shots.size())
                           .arg(free_memory::text(estimateOf(job))));
    else
        console::print(QStringLiteral("%1: %2").arg(job.output, status));
}

void BatchRun::say(const QString &file, const QString &reason)
{
    bar.clear();
    console::complain(file, reason);
}

void BatchRun::showProgress()
{
    if (all == 0)
        return;
    QString text = QStringLiteral("%1 of %2").arg(done).arg(all);
    const std::optional<qint64> left = remaining.milliseconds(clock.elapsed());
    if (left && done < all)
        text += QStringLiteral(", about %1 left").arg(RemainingTime::text(*left));
    bar.show(double(done) / all, text);
}

/// Each bracket in its place, however they end.
void BatchRun::showInSheet(const BatchJob &job, const QJsonObject &record)
{
    const QString key = job.bracket.shots.front().path;
    if (!placeInSheet.contains(key)) {
        placeInSheet.insert(key, sheet.brackets.size());
        sheet.brackets.append(record);
    }
    sheet.brackets[placeInSheet.value(key)] = record;
}

/// What was made before, or by other processes, is told as they reported it.
void BatchRun::writeSheet()
{
    records = log.read();
    for (QJsonObject &bracket : sheet.brackets) {
        const QString output = bracket.value(QLatin1String("output")).toString();
        const QString status = bracket.value(QLatin1String("status")).toString();
        const auto record = records.constFind(QFileInfo(output).fileName());
        if (record != records.cend() && status != QLatin1String("failed"))
            bracket = *record;
    }
    if (watch)
        sheet.leftOut = watch->leftOut();
    bar.show(1, QStringLiteral("Writing the contact sheet"));
    const QString path = ContactSheet::pathIn(options.output);
    const QString problem = sheet.write(path, interrupt::removeOnInterrupt);
    if (problem.isEmpty())
        return;
    say(path, problem);
    keep(ExitCode::WriteFailed);
}
