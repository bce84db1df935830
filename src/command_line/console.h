#pragma once

#include <QString>

/// What the program says. Texts are UTF-8 or whatever the locale asks for; lines end here.
namespace console {

/// Holds the places of standard streams that the caller closed, so that no picture is opened in
/// the place of standard output. Call it first in main().
void keepClosedStreamsClosed();

/// "veskhdr: file: reason" on standard error, or "veskhdr: reason" when file is empty.
void complain(const QString &file, const QString &reason);

/// One line on standard output. What cannot be written is remembered, see outputFailure.
void print(const QString &line);

/// Why a line could not be written to standard output, in words; empty when all could.
QString outputFailure();

/// True when standard output is a terminal, so that a person reads it.
bool isTerminal();

} // namespace console
