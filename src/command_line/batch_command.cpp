#include "batch_command.h"

#include "BatchOptions.h"
#include "BatchRun.h"
#include "console.h"

ExitCode command_line::runBatch(const QStringList &words)
{
    const BatchOptions options = parseBatchOptions(words);
    if (!options.problem.isEmpty()) {
        console::complain({}, QStringLiteral("batch: ") + options.problem);
        return ExitCode::Usage;
    }
    return BatchRun(options).run();
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
