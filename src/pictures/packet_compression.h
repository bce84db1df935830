#pragma once

#include <QByteArray>

namespace packet_compression {

/// The bytes of a zlib stream; empty when it is damaged, or holds more than any metadata. Any
/// thread, reentrant.
QByteArray inflate(const QByteArray &stream);

} // namespace packet_compression
