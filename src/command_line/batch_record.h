#pragma once

#include "BatchPlan.h"
#include "ExitCode.h"
#include "MergeProcess.h"

#include <QJsonObject>

/// What the report tells about one bracket, for the machine.
namespace batch_record {

/// What is known without a merge. milliseconds: 0.
QJsonObject of(const BatchJob &job, const char *status, ExitCode code);

/// After a merge: its time, what it said and what it measured.
QJsonObject ofMerge(const BatchJob &job, const char *status, ExitCode code,
                    const MergeProcess::End &end);

/// How the merge ended, for exit codes of the program: a process that a signal ended tells none.
ExitCode codeOf(const MergeProcess::End &end);

/// Its words on standard error without the program's name, line by line.
QStringList messagesOf(const MergeProcess::End &end);

/// Peak memory that a merge measured of itself; 0 when it told none.
qint64 peakMemoryOf(const QJsonObject &record);

} // namespace batch_record
