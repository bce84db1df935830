#include "free_memory.h"

#include <QDir>
#include <QFile>
#include <QList>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr qint64 kNoLimit = std::numeric_limits<qint64>::max();
constexpr qint64 kMegabyte = qint64(1) << 20;

/// Files of the kernel tell no size; the whole text, or nothing.
QByteArray textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}

/// The number behind a word at the beginning of a line.
std::optional<qint64> numberOf(const QByteArray &text, const QByteArray &word)
{
    for (const QByteArray &line : text.split('\n')) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        if (fields.size() >= 2 && fields[0] == word)
            return fields[1].toLongLong();
    }
    return std::nullopt;
}

/// What the files of a control group are called.
struct GroupFiles
{
    const char *limit;
    const char *used;
    const char *cache; ///< in memory.stat
};

/// What is left in one group, kNoLimit without a limit.
qint64 leftIn(const QString &group, const GroupFiles &names)
{
    bool isNumber = false;
    const qint64 limit =
        textOf(group + QLatin1Char('/') + QLatin1String(names.limit)).toLongLong(&isNumber);
    if (!isNumber)
        return kNoLimit;
    const qint64 used = textOf(group + QLatin1Char('/') + QLatin1String(names.used)).toLongLong();
    const qint64 cache =
        numberOf(textOf(group + QStringLiteral("/memory.stat")), names.cache).value_or(0);
    return std::max<qint64>(0, limit - used + cache);
}

/// The least of a group and those above it.
qint64 leftUpFrom(const QString &mount, QString group, const GroupFiles &names)
{
    qint64 least = kNoLimit;
    while (true) {
        least = std::min(least, leftIn(mount + group, names));
        if (group.size() <= 1)
            return least;
        group.truncate(std::max<qsizetype>(group.lastIndexOf(QLatin1Char('/')), 0));
    }
}

qint64 leftInGroups(const QDir &root)
{
    constexpr GroupFiles kUnified = {"memory.max", "memory.current", "inactive_file"};
    constexpr GroupFiles kOld = {"memory.limit_in_bytes", "memory.usage_in_bytes",
                                 "total_inactive_file"};
    const QString mount = root.filePath(QStringLiteral("sys/fs/cgroup"));
    qint64 least = kNoLimit;
    for (const QByteArray &line :
         textOf(root.filePath(QStringLiteral("proc/self/cgroup"))).split('\n')) {
        const QList<QByteArray> fields = line.split(':');
        if (fields.size() < 3)
            continue;
        const QString group = QFile::decodeName(line.mid(fields[0].size() + fields[1].size() + 2));
        if (fields[1].isEmpty())
            least = std::min(least, leftUpFrom(mount, group, kUnified));
        else if (fields[1].split(',').contains("memory"))
            least = std::min(least, leftUpFrom(mount + QStringLiteral("/memory"), group, kOld));
    }
    return least;
}

} // namespace

qint64 free_memory::bytes(const QString &root)
{
    const QDir folder(root);
    const std::optional<qint64> kilobytes =
        numberOf(textOf(folder.filePath(QStringLiteral("proc/meminfo"))), "MemAvailable:");
    const qint64 ofMachine = kilobytes
                                 ? *kilobytes * 1024
                                 : qint64(::sysconf(_SC_PHYS_PAGES)) * ::sysconf(_SC_PAGESIZE) / 2;
    return std::max<qint64>(0, std::min(ofMachine, leftInGroups(folder)));
}

std::optional<qint64> free_memory::bytesOf(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("^(\\d+(?:\\.\\d+)?)([KMGT]?)i?B?$"),
                                            QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QString unit = match.captured(2).toUpper();
    const qsizetype power = unit.isEmpty() ? 0 : QStringLiteral("KMGT").indexOf(unit) + 1;
    const double bytes = match.captured(1).toDouble() * std::pow(1024.0, double(power));
    constexpr double kMost = double(qint64(1) << 60);
    if (bytes < double(kMegabyte) || bytes > kMost)
        return std::nullopt;
    return qint64(bytes);
}

/// What getrusage() tells of this process counts that of its parent at the fork.
qint64 free_memory::peakOfProcess()
{
    constexpr qint64 kUnit = 1024;
    rusage children = {};
    ::getrusage(RUSAGE_CHILDREN, &children);
    const std::optional<qint64> own =
        numberOf(textOf(QStringLiteral("/proc/self/status")), "VmHWM:");
    return (own.value_or(0) + children.ru_maxrss) * kUnit;
}

QString free_memory::text(qint64 bytes)
{
    constexpr double kGigabyte = 1024.0 * kMegabyte;
    return bytes < qint64(kGigabyte)
               ? QStringLiteral("%1 MB").arg((bytes + kMegabyte / 2) / kMegabyte)
               : QStringLiteral("%1 GB").arg(double(bytes) / kGigabyte, 0, 'f', 1);
}
