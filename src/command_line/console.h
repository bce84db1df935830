#pragma once

#include <QString>

/// What the program says. Texts are UTF-8 or whatever the locale asks for; lines end here.
namespace console {

/// "veskhdr: file: reason" on standard error, or "veskhdr: reason" when file is empty.
void complain(const QString &file, const QString &reason);

/// One line on standard output.
void print(const QString &line);

/// True when standard output is a terminal, so that a person reads it.
bool isTerminal();

} // namespace console
