#pragma once

#include <QtGlobal>

/// Marks what libVeskCore offers to its users. Everything else in the library stays hidden.
#ifdef VESKCORE_BUILD
#define VESKCORE_EXPORT Q_DECL_EXPORT
#else
#define VESKCORE_EXPORT Q_DECL_IMPORT
#endif
