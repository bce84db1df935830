#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// The text of an INI file as QSettings reads it, looked up and changed key by key: no value but
/// that of the key asked for is decoded, and none is ever more than text. Any thread.
namespace ini {

/// The texts of the value of key ("group/name", or "name" for the group General or none), see
/// readValue; where the key stands twice, the last. Nothing when it is not there.
std::optional<QStringList> find(QByteArrayView text, const QString &key);

/// text with that value, every byte of other keys and comments kept. A new key goes below the
/// header of its group.
QByteArray withValue(const QByteArray &text, const QString &key, const QStringList &value);
/// text without key, wherever it stands.
QByteArray withoutKey(const QByteArray &text, const QString &key);

} // namespace ini
