#pragma once

#include <QHash>
#include <QJsonObject>
#include <QString>

/// The report of a batch: a JSON object on a line of its own for each bracket that was worked on,
/// appended and brought to the disk one by one, so that it tells the truth after any end. Several
/// processes may write one file. One thread at a time.
class BatchLog
{
public:
    /// The file may be there, or not.
    explicit BatchLog(const QString &path);

    /// The file's name in a folder of results.
    static QString pathIn(const QString &folder);

    /// Reads what is there, by the names of the results without folders; of several about one the
    /// last counts. Lines that a power cut damaged are passed over.
    QHash<QString, QJsonObject> read() const;

    /// False when it could not be written to its end.
    bool append(const QJsonObject &object) const;

private:
    const QString file;
};
