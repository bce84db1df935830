#pragma once

#include "bracket_finder.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

/// Which part of the work one of several processes does: part k of n, from 1 on.
struct Shard
{
    int part = 1;
    int parts = 1;
};

/// One bracket of a batch: what it is merged from and into.
struct BatchJob
{
    enum class State {
        New,       ///< there is no result yet
        Unchanged, ///< the result is there, made of the same pictures in the same way
        Changed,   ///< the result is of other pictures or options, or the pictures were changed
        Foreign,   ///< a file is there that is no result of this program
        SameName,  ///< another bracket gets the same name
    };

    Bracket bracket;
    QString output;
    State state = State::New;

    QStringList pictures() const;
    /// Size and time of each picture, by which a later run knows them again.
    QStringList stamps() const;
};

/// How the brackets of a batch are merged, as results bear it in their mark.
struct MergeWay
{
    QString method;  ///< the word for it
    QString options; ///< without the method
};

/// Names the results of a batch and finds out what is to be done. The same files give the same plan
/// in every process, so that several share the work without speaking to each other. One thread.
class BatchPlan
{
public:
    /// pattern: the file's name, with {date}, {time}, {first}, {last}, {count} and {folder}.
    BatchPlan(const QString &folder, const QString &pattern, const MergeWay &way);

    /// stampsOf: what results, by their file names, were made of. Of a result that is not among
    /// them the age tells whether it is still true.
    void remember(const QHash<QString, QStringList> &stampsOf) { made = stampsOf; }

    BatchJob add(const Bracket &bracket);

    /// How things are by now: another process may have made the result.
    BatchJob::State stateOf(const BatchJob &job) const;

    /// Whether the job belongs to that part; the name of the result alone decides.
    static bool belongsTo(const BatchJob &job, const Shard &shard);

private:
    QString nameOf(const Bracket &bracket) const;
    bool arePicturesChanged(const BatchJob &job) const;

    QString folder;
    QString pattern;
    MergeWay way;
    QSet<QString> outputs;
    QHash<QString, QStringList> made;
};
