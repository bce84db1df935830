#include "BatchOptions.h"

#include "MergeOptions.h"
#include "free_memory.h"
#include "parallel_rows.h"

#include <QCommandLineParser>

namespace {

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

merge_memory::Method methodOf(MergeMethod method)
{
    switch (method) {
    case MergeMethod::Mean:
        return merge_memory::Method::Mean;
    case MergeMethod::Radiance:
        return merge_memory::Method::Radiance;
    case MergeMethod::Fusion:
        break;
    }
    return merge_memory::Method::Fusion;
}

/// What the merge itself would say of the options, tried on two pictures that need not be there.
QString readMergeWords(BatchOptions &options)
{
    const ParsedMergeOptions parsed = command_line::parseMergeOptions(
        options.mergeWords +
        QStringList{QStringLiteral("-o"), options.name, QStringLiteral("a"), QStringLiteral("b")});
    options.way = {wordOf(parsed.options.method), parsed.options.description};
    options.needs.method = methodOf(parsed.options.method);
    options.needs.isResultDeep = parsed.options.depth == 16;
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
    if (options.isWatching && options.isDryRun)
        return QStringLiteral("--watch and --dry-run exclude each other");
    return readMergeWords(options);
}

/// The options that batch has for itself.
class OwnOptions
{
public:
    void addTo(QCommandLineParser &parser) const
    {
        parser.addOptions({output, name, shard, memory, jobs, dryRun, watch, rest, json, html});
    }

    QString read(const QCommandLineParser &parser, BatchOptions &options) const
    {
        options.output = parser.value(output);
        if (parser.isSet(name))
            options.name = parser.value(name);
        options.isDryRun = parser.isSet(dryRun);
        options.isWatching = parser.isSet(watch);
        options.json = parser.isSet(json);
        options.html = parser.isSet(html);
        if (parser.isSet(shard) && !readShard(parser.value(shard), options.shard))
            return QStringLiteral("the shard is a part of all, such as 2/5");
        const QString problem = readRest(parser, options);
        return problem.isEmpty() ? readBounds(parser, options) : problem;
    }

private:
    QString readRest(const QCommandLineParser &parser, BatchOptions &options) const
    {
        constexpr int kMost = 86400;
        if (!parser.isSet(rest))
            return {};
        bool isNumber = false;
        options.restSeconds = parser.value(rest).toInt(&isNumber);
        const bool isFit = isNumber && options.restSeconds >= 0 && options.restSeconds <= kMost;
        return !isFit               ? QStringLiteral("--rest takes a number of seconds")
               : options.isWatching ? QString()
                                    : QStringLiteral("--rest goes with --watch");
    }

    QString readBounds(const QCommandLineParser &parser, BatchOptions &options) const
    {
        options.jobs = parser.isSet(jobs) ? parser.value(jobs).toInt() : parallel::processorCount();
        if (options.jobs < 1)
            return QStringLiteral("the jobs must be a number, 1 or more");
        const std::optional<qint64> bytes = parser.isSet(memory)
                                                ? free_memory::bytesOf(parser.value(memory))
                                                : free_memory::bytes() / 2;
        options.memory = bytes.value_or(0);
        return bytes ? QString() : QStringLiteral("the memory is a size such as 800M or 4G");
    }

    const QCommandLineOption output{
        {QStringLiteral("o"), QStringLiteral("output")}, {}, QStringLiteral("folder")};
    const QCommandLineOption name{QStringLiteral("name"), {}, QStringLiteral("pattern")};
    const QCommandLineOption shard{QStringLiteral("shard"), {}, QStringLiteral("part")};
    const QCommandLineOption memory{QStringLiteral("memory"), {}, QStringLiteral("size")};
    const QCommandLineOption jobs{QStringLiteral("jobs"), {}, QStringLiteral("number")};
    const QCommandLineOption dryRun{QStringLiteral("dry-run")};
    const QCommandLineOption watch{QStringLiteral("watch")};
    const QCommandLineOption rest{QStringLiteral("rest"), {}, QStringLiteral("seconds")};
    const QCommandLineOption json{QStringLiteral("json")};
    const QCommandLineOption html{QStringLiteral("html")};
};

} // namespace

BatchOptions command_line::parseBatchOptions(const QStringList &words)
{
    const OwnOptions own;
    const BracketSearch search;
    QCommandLineParser parser;
    search.addTo(parser);
    own.addTo(parser);
    BatchOptions options;
    const auto end = words.indexOf(QStringLiteral("--"));
    options.mergeWords = end < 0 ? QStringList() : words.mid(end + 1);
    if (!parser.parse(QStringList(QStringLiteral("veskhdr")) + words.mid(0, end))) {
        options.problem = parser.errorText();
        return options;
    }
    options.search.folders = parser.positionalArguments();
    options.problem = search.read(parser, options.search);
    if (options.problem.isEmpty())
        options.problem = own.read(parser, options);
    if (options.problem.isEmpty())
        options.problem = checkOptions(options);
    return options;
}
