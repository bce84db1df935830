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
in the folder OUT, which is made. Several are merged at a time, as many as there are
cores and as fit into the memory allowed. What is done already and unchanged is left
alone, so a batch that was interrupted goes on where it stopped. A bracket that cannot
be merged is named, and the others are merged.

Options:
  -o, --output OUT  Folder for the results
  --name PATTERN    Their names, with {date} {time} {first} {last} {count} {folder} and
                    a suffix for the format ({date}T{time}_{first}_merged.jpg)
  --memory SIZE     The most memory that all merges take together, such as 800M or 4G;
                    half of what is free unless given
  --jobs N          The most merges at a time; one for each core unless given
  --dry-run         Show what would be done, and how much memory it takes
  --shard K/N       Do part K of N alone: N processes, on one machine or several, share
                    the work without speaking to each other
  --watch           Go on looking for brackets, as a folder fills, until Ctrl+C
  --rest SECONDS    Of a watched folder: merge a bracket that has been complete for so
                    long (15)
  --html            Write a contact sheet, too: OUT/veskhdr-batch.html
  --json            Print one JSON object per bracket, each on a line of its own
  --gap SECONDS, --min N, --max N, --prefer KIND, --raw, --recursive
                    As of 'veskhdr group'
  --help            Show this text
  --                What follows are options of each merge: see 'veskhdr merge --help'

A result is done when it bears the mark of this program and was made with the same
options of the same pictures, by size and time; otherwise it is made anew. Other files
are never replaced. What was done stands in OUT/veskhdr-batch.jsonl, a JSON object on
a line for each bracket, appended when it ends. A bracket that needs more memory than
allowed is merged alone, with a warning.

Members of an object: output, status ("merged", "unchanged", "failed", or "planned"),
exitCode (of the merge), milliseconds, pictures, exposureTime and exposureBias of each,
warnings; of a merge also messages (what it said), reference, confidence (0 to 1, how
sure the alignment of each picture is), steps (milliseconds), peakMemory (bytes), at
(when it ended) and stamps (size and time of each picture); "planned": memory (bytes).

Exit codes:
   0  all brackets are merged, even if there is none
  64  wrong options or arguments
  66  a folder is missing, is not a folder, or must not be read; the others are merged
  73  the folder OUT cannot be made, or a file that is no result stands in its place
  74  standard output, the report or the contact sheet could not be written to its end
Otherwise the code of the first merge that failed, see 'veskhdr merge --help'; 71 also
where the system ended one for lack of memory.)");
}
