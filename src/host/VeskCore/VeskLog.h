#pragma once

#include "veskcore_export.h"

#include <QMutex>
#include <QString>

/// The editor's log: a file in the application's local data location, and Qt's logging category
/// "vesk.host" (level info) for whoever watches the process. Any thread. Logging never fails
/// towards the caller: a file that cannot be written is left out, and so is an entry that the disk
/// has no room for.
///
/// The file rotates: "vesk.log" is renamed to "vesk.log.1" (and that to "vesk.log.2") before it
/// would grow beyond kMaximumFileSize; only a single entry longer than that makes a longer file.
///
/// A tool calls Instance and Log.
class VESKCORE_EXPORT VeskLog
{
public:
    static constexpr qint64 kMaximumFileSize = 1024 * 1024;
    static constexpr int kKeptFiles = 2;

    /// The one log, created on first call and kept for the life of the process.
    static VeskLog *Instance();

    /// Writes one entry in printf style: a UTC time stamp, a blank, and the text (UTF-8) as it is;
    /// a line break is added if the text does not end with one. Do not call it from a Qt message
    /// handler.
    void Log(const char *format, ...) Q_ATTRIBUTE_FORMAT_PRINTF(2, 3);

    /// Where the file is.
    static QString filePath();

private:
    VeskLog() = default;

    void write(const QByteArray &entry);

    QMutex mutex;
};
