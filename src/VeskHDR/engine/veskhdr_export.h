#pragma once

#include <QtGlobal>

/// Marks what libVeskHDR offers to its host. Everything else in the library stays hidden.
#ifdef VESKHDR_BUILD
#define VESKHDR_EXPORT Q_DECL_EXPORT
#else
#define VESKHDR_EXPORT Q_DECL_IMPORT
#endif
