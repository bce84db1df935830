#pragma once

#include <QString>
#include <QStringList>

/// The language that the editor and the tools speak: the one that the user chose, or else the
/// desktop's, as far as there are texts in it. GUI thread, but for languageFor.
namespace language_choice {

/// Locale names of the languages that there are texts in, beside English.
QStringList translated();

/// The first of the desktop's languages that there are texts in, as a locale name; empty for
/// English, and when there is none. desktop: as QLocale::uiLanguages has them, the best one first.
/// Any thread.
QString languageFor(const QStringList &desktop);

/// Finds the language of this start. One that was not chosen is written to the settings, too: the
/// tools read it there.
QString atStart(const QStringList &desktop);

/// For this and all later starts, whatever the desktop speaks. Empty for English.
void choose(const QString &localeName);

} // namespace language_choice
