#pragma once

#include "BatchPlan.h"
#include "BracketSearch.h"
#include "merge_memory.h"

#include <QString>
#include <QStringList>

/// What the words after "veskhdr batch" ask for.
struct BatchOptions
{
    SearchOptions search;
    QString output;
    QString name = QStringLiteral("{date}T{time}_{first}_merged.jpg");
    QStringList mergeWords;    ///< options of each merge
    MergeWay way;              ///< the same, as results bear it
    merge_memory::Needs needs; ///< method and depth of each merge
    Shard shard;
    qint64 memory = 0;    ///< bytes for all merges together
    int jobs = 1;         ///< merges at a time, at most
    int restSeconds = 15; ///< how long a watched bracket must have been complete
    bool isDryRun = false;
    bool isWatching = false;
    bool json = false;
    bool html = false;
    QString problem; ///< empty when the options are all right
};

namespace command_line {

BatchOptions parseBatchOptions(const QStringList &words);

} // namespace command_line
