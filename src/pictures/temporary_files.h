#pragma once

#include <QString>

/// Temporary files that tell by a lock whether their writer still lives: the system takes the lock
/// away when the process ends, however it ends. Any thread, reentrant.
namespace temporary_files {

/// A name in the folder that nobody has yet. Names look like .veskhdr-0123456789abcdef.tmp.
QString newName(const QString &folder);

/// Makes the file, open for reading and writing, and locks it as long as it is open. Returns its
/// descriptor, which the caller owns, or -1 with the reason in errno.
int create(const QString &path);

/// Removes the files of such names that a process of this user left in the folder and nobody writes
/// any more. What cannot be removed stays, without a word.
void sweep(const QString &folder);

} // namespace temporary_files
