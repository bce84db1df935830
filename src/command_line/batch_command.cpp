#include "batch_command.h"

#include "BatchPlan.h"
#include "BracketSearch.h"
#include "MergeOptions.h"
#include "console.h"
#include "merge_command.h"

#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

struct BatchOptions
{
    SearchOptions search;
    QString output;
    QString name = QStringLiteral("{date}T{time}_{first}_merged.jpg");
    QStringList mergeWords; ///< options of each merge
    QString description;    ///< the same, as results bear them
    Shard shard;
    bool isDryRun = false;
    bool json = false;
    QString problem; ///< empty when the options are all right
};

/// "2/5"
bool readShard(const QString &text, Shard &shard)
{
    const QStringList numbers = text.split(u'/');
    bool isPart = false;
    bool areParts = false;
    shard.part = numbers.value(0).toInt(&isPart);
    shard.parts = numbers.value(1).toInt(&areParts);
    return numbers.size() == 2 && isPart && areParts && shard.part >= 1 &&
           shard.part <= shard.parts;
}

/// What the merge itself would say of the options, tried on two pictures that need not be there.
QString readMergeWords(BatchOptions &options)
{
    const ParsedMergeOptions parsed = command_line::parseMergeOptions(
        options.mergeWords +
        QStringList{QStringLiteral("-o"), options.name, QStringLiteral("a"), QStringLiteral("b")});
    options.description = parsed.options.description;
    if (!parsed.problem.isEmpty())
        return parsed.problem;
    const bool namesPictures = parsed.options.pictures.size() != 2 || parsed.options.json;
    return namesPictures ? QStringLiteral("behind -- stand options of merge alone, but not --json")
                         : QString();
}

QString checkOptions(BatchOptions &options)
{
    if (options.search.folders.isEmpty())
        return QStringLiteral("no folder given, see 'veskhdr batch --help'");
    if (options.output.isEmpty())
        return QStringLiteral("no folder for the results given, name it with -o");
    if (options.name.contains(u'/'))
        return QStringLiteral("the name must not contain a folder");
    return readMergeWords(options);
}

BatchOptions parse(const QStringList &words)
{
    const QCommandLineOption output({QStringLiteral("o"), QStringLiteral("output")}, {},
                                    QStringLiteral("folder"));
    const QCommandLineOption name(QStringLiteral("name"), {}, QStringLiteral("pattern"));
    const QCommandLineOption shard(QStringLiteral("shard"), {}, QStringLiteral("part"));
    const QCommandLineOption dryRun(QStringLiteral("dry-run"));
    const QCommandLineOption json(QStringLiteral("json"));
    const BracketSearch search;
    QCommandLineParser parser;
    search.addTo(parser);
    parser.addOptions({output, name, shard, dryRun, json});
    BatchOptions options;
    const auto end = words.indexOf(QStringLiteral("--"));
    options.mergeWords = end < 0 ? QStringList() : words.mid(end + 1);
    if (!parser.parse(QStringList(QStringLiteral("veskhdr")) + words.mid(0, end))) {
        options.problem = parser.errorText();
        return options;
    }
    options.search.folders = parser.positionalArguments();
    options.output = parser.value(output);
    if (parser.isSet(name))
        options.name = parser.value(name);
    options.isDryRun = parser.isSet(dryRun);
    options.json = parser.isSet(json);
    options.problem = search.read(parser, options.search);
    if (options.problem.isEmpty() && parser.isSet(shard) &&
        !readShard(parser.value(shard), options.shard))
        options.problem = QStringLiteral("the shard is a part of all, such as 2/5");
    if (options.problem.isEmpty())
        options.problem = checkOptions(options);
    return options;
}

/// Merges what is to be merged, one bracket after the other: each merge uses all cores.
class Batch
{
public:
    explicit Batch(const BatchOptions &batchOptions)
        : options(batchOptions)
        , plan(options.output, options.name, options.description)
    {
    }

    ExitCode run();

private:
    void add(const Bracket &bracket);
    void work(const BatchJob &job);
    ExitCode merge(const BatchJob &job) const;
    void tell(const BatchJob &job, const char *status, ExitCode code, qint64 milliseconds) const;
    void keep(ExitCode other) { code = code == ExitCode::Ok ? other : code; }

    const BatchOptions &options;
    BatchPlan plan;
    std::vector<BatchJob> jobs;
    ExitCode code = ExitCode::Ok;
};

void Batch::add(const Bracket &bracket)
{
    BatchJob job = plan.add(bracket);
    if (BatchPlan::belongsTo(job, options.shard))
        jobs.push_back(std::move(job));
}

/// The whole plan stands before the first merge: results may lie in a folder that is searched.
ExitCode Batch::run()
{
    keep(BracketSearch::run(
        options.search, [this](const Bracket &bracket) { add(bracket); },
        [](const QString &path, const QString &reason) {
            console::complain(path, QStringLiteral("left out, ") + reason);
        }));
    if (!options.isDryRun && !jobs.empty() && !QDir().mkpath(options.output)) {
        console::complain(options.output, QStringLiteral("the folder cannot be made"));
        return ExitCode::CannotCreate;
    }
    for (const BatchJob &job : jobs)
        work(job);
    return code;
}

void Batch::work(const BatchJob &job)
{
    for (const QString &warning : job.bracket.warnings)
        console::complain(job.output, QStringLiteral("warning: ") + warning);
    if (job.state == BatchJob::State::Unchanged)
        return tell(job, "unchanged", ExitCode::Ok, 0);
    if (job.state == BatchJob::State::Foreign || job.state == BatchJob::State::SameName) {
        console::complain(job.output, job.state == BatchJob::State::Foreign
                                          ? QStringLiteral("is there, and no result of veskhdr")
                                          : QStringLiteral("another bracket has this name, "
                                                           "--name can tell them apart"));
        keep(ExitCode::CannotCreate);
        return tell(job, "failed", ExitCode::CannotCreate, 0);
    }
    if (options.isDryRun)
        return tell(job, "planned", ExitCode::Ok, 0);
    QElapsedTimer timer;
    timer.start();
    const ExitCode own = merge(job);
    keep(own);
    tell(job, own == ExitCode::Ok ? "merged" : "failed", own, timer.elapsed());
}

ExitCode Batch::merge(const BatchJob &job) const
{
    QStringList words = options.mergeWords;
    if (job.state == BatchJob::State::Changed)
        words += QStringLiteral("--force");
    words += {QStringLiteral("-o"), job.output, QStringLiteral("--")};
    return command_line::runMerge(words + job.pictures());
}

void Batch::tell(const BatchJob &job, const char *status, ExitCode own, qint64 milliseconds) const
{
    if (!options.json) {
        console::print(QStringLiteral("%1: %2").arg(job.output, QLatin1String(status)));
        return;
    }
    const QJsonObject object{
        {QStringLiteral("output"), job.output},
        {QStringLiteral("status"), QLatin1String(status)},
        {QStringLiteral("exitCode"), int(own)},
        {QStringLiteral("milliseconds"), milliseconds},
        {QStringLiteral("pictures"), QJsonArray::fromStringList(job.pictures())},
        {QStringLiteral("warnings"), QJsonArray::fromStringList(job.bracket.warnings)},
    };
    console::print(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
}

} // namespace

ExitCode command_line::runBatch(const QStringList &words)
{
    const BatchOptions options = parse(words);
    if (!options.problem.isEmpty()) {
        console::complain({}, QStringLiteral("batch: ") + options.problem);
        return ExitCode::Usage;
    }
    return Batch(options).run();
}

QString command_line::batchHelp()
{
    return QStringLiteral(
        R"(Usage: veskhdr batch [options] FOLDER... -o OUT [-- MERGE-OPTIONS]

Finds the brackets in folders, as 'veskhdr group' does, and merges each into a picture
in the folder OUT, which is made. What is done already and unchanged is left alone, so
a batch that was interrupted goes on where it stopped. A bracket that cannot be merged
is named, and the others are merged. Each merge uses all cores.

Options:
  -o, --output OUT  Folder for the results
  --name PATTERN    Their names, with {date} {time} {first} {last} {count} {folder} and
                    a suffix for the format ({date}T{time}_{first}_merged.jpg)
  --dry-run         Show what would be done
  --shard K/N       Do part K of N alone: N processes, on one machine or several, share
                    the work without speaking to each other
  --json            Print one JSON object per bracket, each on a line of its own
  --gap SECONDS, --min N, --max N, --prefer KIND, --raw, --recursive
                    As of 'veskhdr group'
  --help            Show this text
  --                What follows are options of each merge: see 'veskhdr merge --help'

A result is done when it bears the mark of this program, was made of the same pictures
with the same options, and is younger than they are; otherwise it is made anew. Other
files are never replaced.

Members of an object: output, status ("merged", "unchanged", "failed", or "planned"),
exitCode (of the merge), milliseconds, pictures, warnings.

Exit codes:
   0  all brackets are merged, even if there is none
  64  wrong options or arguments
  66  a folder is missing, is not a folder, or must not be read; the others are merged
  73  the folder OUT cannot be made, or a file that is no result stands in its place
  74  standard output could not be written to its end
Otherwise the code of the first merge that failed, see 'veskhdr merge --help'.)");
}
