#include "veskhdr_export.h"

// The library's host may reach the two by name; the resource compiler does not export them.
VESKHDR_EXPORT int qInitResources_veskhdr();
VESKHDR_EXPORT int qCleanupResources_veskhdr();

// The static object that registers the bundle at load and unregisters it at unload.
#define dummy qCleanupResources_veskhdr__dest_instance__
#include "qrc_veskhdr.cpp" // NOLINT(bugprone-suspicious-include): made by the build
