#pragma once

#include <QtGlobal>

/// Marks what libVeskRaw offers to its users. Everything else in the library stays hidden.
#ifdef VESKRAW_BUILD
#define VESKRAW_EXPORT Q_DECL_EXPORT
#else
#define VESKRAW_EXPORT Q_DECL_IMPORT
#endif
