#pragma once

#include <QFile>

#include <atomic>

/// A file that gives no more bytes once its reader is to end: whoever decodes it takes it for cut
/// off and stops soon. One thread, but for the flag.
class InterruptibleFile : public QFile
{
public:
    /// end: borrowed, may be null.
    explicit InterruptibleFile(const std::atomic<bool> *end)
        : interruption(end)
    {
    }

    bool isInterrupted() const { return interruption && *interruption; }

protected:
    qint64 readData(char *bytes, qint64 count) override
    {
        return isInterrupted() ? -1 : QFile::readData(bytes, count);
    }

private:
    const std::atomic<bool> *const interruption;
};
