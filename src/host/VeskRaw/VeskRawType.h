#pragma once

#include "veskraw_export.h"

#include <QString>
#include <QStringList>

/// Tells camera raw files from other files. Any thread, never throws.
///
/// A tool calls isRaw.
class VESKRAW_EXPORT VeskRawType
{
public:
    VeskRawType() = delete;

    /// True when VeskRaw can convert the file at path, judged by its suffix and its content: under
    /// a raw suffix the content must be one that LibRaw opens, under another suffix it
    /// must also begin like a raw file. An ordinary picture (JPEG, PNG, TIFF, ...) is never raw,
    /// whatever its suffix. Reads the file's header only.
    static bool isRaw(const QString &path);

    /// Suffixes of camera raw files, lower case without dot, for file dialogs.
    static QStringList suffixes();
};
