#pragma once

#include <QtGlobal>

/// Marks what libVeskUI offers to its users. Everything else in the library stays hidden.
#ifdef VESKUI_BUILD
#define VESKUI_EXPORT Q_DECL_EXPORT
#else
#define VESKUI_EXPORT Q_DECL_IMPORT
#endif
