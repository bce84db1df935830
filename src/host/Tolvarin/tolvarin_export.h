#pragma once

#include <QtGlobal>

/// Marks what libTolvarin offers to its users. Everything else in the library stays hidden.
#ifdef TOLVARIN_BUILD
#define TOLVARIN_EXPORT Q_DECL_EXPORT
#else
#define TOLVARIN_EXPORT Q_DECL_IMPORT
#endif
