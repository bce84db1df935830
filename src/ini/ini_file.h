#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// INI files on the disk, whatever may have happened to them. Any thread, several processes at
/// once; nothing is thrown.
namespace ini {

/// Larger files are neither read nor written.
constexpr qint64 kLargestBytes = 16 * 1024 * 1024;

/// The texts of key, see find. Nothing also when the file is not there, is no regular file (a pipe
/// is not waited for), or cannot be read.
std::optional<QStringList> read(const QString &path, const QString &key);

/// Writes key, or takes it out without a value, and keeps every other byte. The file is replaced in
/// one step once it is complete, under the lock that QSettings uses; it keeps its permissions, and
/// a link stays a link. A new file is the user's alone. False, with the file as it was, when it is
/// not a file that read can read, or cannot be written.
bool store(const QString &path, const QString &key, const std::optional<QStringList> &value);

} // namespace ini
