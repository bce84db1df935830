#pragma once

#include <QString>
#include <QtGlobal>

/// What tells whether a file is still the one that was read: its size, and when it was changed.
struct FileStamp
{
    qint64 bytes = -1; ///< -1: not known, or there is none
    qint64 changedMs = -1;

    static FileStamp of(const QString &path);
    bool isKnown() const { return bytes >= 0; }
    friend bool operator==(const FileStamp &a, const FileStamp &b)
    {
        return a.bytes == b.bytes && a.changedMs == b.changedMs;
    }
};
