#pragma once

#include "Shot.h"

#include <QHash>

/// What was read of files, as long as they do not change: for a folder that is searched again and
/// again. One thread at a time.
class ShotCache
{
public:
    /// Nothing for a file that is new or has another size or time than it had.
    std::optional<ShotReading> find(const QString &path) const;
    void insert(const QString &path, const ShotReading &reading);

private:
    struct Known
    {
        QString stamp;
        ShotReading reading;
    };

    QHash<QString, Known> files;
};
