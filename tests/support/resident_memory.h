#pragma once

#include <QtGlobal>

/// Bytes of memory that the process has in use now; -1 where the system does not tell, and in
/// sanitizer builds, which keep freed memory back (and find leaks themselves).
qint64 residentBytes();

/// Files that the process has open, and its threads; -1 where the system does not tell.
int openFileCount();
int threadCount();
