#pragma once

#include "veskcore_export.h"

#include <QString>
#include <QVariant>

/// The INI file that the editor and its tools share, as a place that anything may have happened to.
/// Whatever it holds, reading gives a value or the default, and the process goes on. No tool calls
/// this.
///
/// Values are those that INI files hold as text: truth values, numbers, texts, lists of texts,
/// bytes, points, sizes and rectangles. The objects that QSettings serialises (colours, fonts,
/// dates) are read as the default and never written; those of other keys stay as they are. The file
/// is never renamed, and every other byte of it survives a write. What is larger than
/// kLargestBytes, or no regular file (a directory, a pipe), reads as empty and takes no values. Any
/// thread.
class VESKCORE_EXPORT VeskSettingsFile
{
public:
    VeskSettingsFile() = delete;

    static constexpr qint64 kLargestBytes = 16 * 1024 * 1024;

    /// Every read sees what was last written by anybody in the process.
    static QVariant value(const QString &key, const QVariant &defaultValue = {});
    /// On its way to the file at once. An invalid value removes the key. False when the file could
    /// not be written, which is reported to the log category "vesk.host".
    static bool setValue(const QString &key, const QVariant &value);
};
