#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// Memory that this machine has to give.
namespace free_memory {

/// Bytes that programs can take without others being moved out: what the kernel estimates
/// (MemAvailable), and no more than what is left in any control group that this process stands in,
/// whose file cache counts as free. Half of what is built in where the system does not tell; never
/// negative. root: where /proc and /sys stand. Any thread.
qint64 bytes(const QString &root = QStringLiteral("/"));

/// "800M", "1.5G" and the like in bytes: K, M, G and T are powers of 1024, a number alone counts
/// bytes. Nothing for other texts, and for less than one megabyte.
std::optional<qint64> bytesOf(const QString &text);

/// The most that this process has had at a time, and the largest of the processes that it waited
/// for on top.
qint64 peakOfProcess();

/// For people: "1.5 GB".
QString text(qint64 bytes);

} // namespace free_memory
