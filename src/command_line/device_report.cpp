#include "device_report.h"

#include <QJsonArray>

namespace {

constexpr qint64 kKilobyte = 1024;
constexpr qint64 kMegabyte = 1024 * kKilobyte;

QString cacheType(cl_device_mem_cache_type type)
{
    switch (type) {
    case CL_NONE:
        return QStringLiteral("none");
    case CL_READ_ONLY_CACHE:
        return QStringLiteral("read only");
    case CL_READ_WRITE_CACHE:
        return QStringLiteral("read and write");
    default:
        return {};
    }
}

QString deviceType(cl_device_type type)
{
    switch (type & ~cl_device_type(CL_DEVICE_TYPE_DEFAULT)) {
    case 0:
        return type == CL_DEVICE_TYPE_DEFAULT ? QStringLiteral("default") : QString();
    case CL_DEVICE_TYPE_CPU:
        return QStringLiteral("processor");
    case CL_DEVICE_TYPE_GPU:
        return QStringLiteral("GPU");
    case CL_DEVICE_TYPE_ACCELERATOR:
        return QStringLiteral("accelerator");
    default:
        return {};
    }
}

QString line(const char *name, const QString &value)
{
    return QStringLiteral("  %1 %2\n").arg(QLatin1String(name), -20).arg(value);
}

QString inKilobytes(cl_ulong bytes)
{
    return QStringLiteral("%1 KB").arg(bytes / kKilobyte);
}

/// JSON numbers hold integers up to 2^53.
qint64 number(cl_ulong value)
{
    return static_cast<qint64>(value);
}

QJsonValue textOrNull(const QString &text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

} // namespace

QString command_line::toLines(const VeskDeviceInfo::OpenCLDevice &device)
{
    return device.name + QLatin1Char('\n') + line("vendor", device.vendor) +
           line("driver version", device.driverVersion) +
           line("cores", QString::number(device.computeUnits)) +
           line("frequency", QStringLiteral("%1 MHz").arg(device.maxClockFrequency)) +
           line("local memory", inKilobytes(device.localMemSize)) +
           line("global memory", QStringLiteral("%1 MB").arg(device.globalMemSize / kMegabyte)) +
           line("global cache", inKilobytes(device.globalCacheSize)) +
           line("global cache line", QStringLiteral("%1 bytes").arg(device.globalCacheLineSize)) +
           line("global cache type", cacheType(device.globalCacheType)) +
           line("images", device.imageSupport ? QStringLiteral("yes") : QStringLiteral("no")) +
           line("type", deviceType(device.type)) +
           line("extensions", device.extensions.join(QLatin1Char(' ')))
               .trimmed()
               .prepend(QLatin1String("  "));
}

QJsonObject command_line::toJson(const VeskDeviceInfo::OpenCLDevice &device)
{
    return {
        {QStringLiteral("name"), device.name},
        {QStringLiteral("vendor"), device.vendor},
        {QStringLiteral("driverVersion"), device.driverVersion},
        {QStringLiteral("computeUnits"), number(device.computeUnits)},
        {QStringLiteral("maxClockFrequency"), number(device.maxClockFrequency)},
        {QStringLiteral("localMemSize"), number(device.localMemSize)},
        {QStringLiteral("globalMemSize"), number(device.globalMemSize)},
        {QStringLiteral("globalCacheSize"), number(device.globalCacheSize)},
        {QStringLiteral("globalCacheLineSize"), number(device.globalCacheLineSize)},
        {QStringLiteral("globalCacheType"), textOrNull(cacheType(device.globalCacheType))},
        {QStringLiteral("imageSupport"), device.imageSupport},
        {QStringLiteral("type"), textOrNull(deviceType(device.type))},
        {QStringLiteral("extensions"), QJsonArray::fromStringList(device.extensions)},
    };
}
