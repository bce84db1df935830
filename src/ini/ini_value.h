#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// The notation in which QSettings writes keys and values into INI files. Texts only: what a value
/// serialises stays the text that it is. Any thread, never fails.
namespace ini {

/// The texts of a value: one, or several where commas stand between them. bytes: what follows the
/// equals sign, in UTF-8, or in Latin-1 where it is no UTF-8 (older releases of Qt wrote it).
QStringList readValue(QByteArrayView bytes);

/// Reads as texts again, in every release of Qt: ASCII only. No text at all counts as one empty
/// text.
QByteArray writtenValue(const QStringList &texts);

/// "a/b" for `a\b`; %20 and %U65E5 are characters.
QString readKey(QByteArrayView bytes);
QByteArray writtenKey(const QString &key);

/// The text behind the marks with which QSettings tells texts and bytes from other values: "@@a" is
/// "@a", "@String(a)" and "@ByteArray(a)" are "a", "@Invalid()" is "". Any other text is itself.
QString withoutMarks(const QString &text);
/// What withoutMarks makes text of again.
QString withMarks(const QString &text);

} // namespace ini
