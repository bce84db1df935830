#pragma once

#include <QString>

/// Says to other processes that a result is being made: a locked file beside it, by its name. The
/// system takes the lock away when the process ends, however it ends, and what it leaves is swept
/// like any temporary file. Where files cannot be locked every claim is granted: results are whole
/// there, too, but may be made twice. One thread at a time.
class ResultClaim
{
public:
    ResultClaim() = default;
    ~ResultClaim() { release(); }
    ResultClaim(const ResultClaim &) = delete;
    ResultClaim &operator=(const ResultClaim &) = delete;

    /// False when another process is at it.
    bool take(const QString &result);
    void release();

private:
    QString path;
    int descriptor = -1;
};
