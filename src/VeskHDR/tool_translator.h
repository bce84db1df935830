#pragma once

#include "veskhdr_export.h"

namespace tool_translator {

/// Installs the translation for the key "language" of the editor's settings file, application-wide
/// and for the life of the process. A catalogue that someone else provides as
/// ":/Resources/veskhdr_<language>.qm" goes before the library's own. Without a catalogue for that
/// language nothing is installed and nothing is reported.
/// GUI thread, with an application object, before the texts are first asked for.
VESKHDR_EXPORT void install();

} // namespace tool_translator
