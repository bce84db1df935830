#include "devices_command.h"

#include "DeviceCheck.h"
#include "VeskDeviceInfo.h"
#include "console.h"
#include "device_report.h"

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

using Device = VeskDeviceInfo::OpenCLDevice;

struct DevicesOptions
{
    bool json = false;
    bool check = false;
    QString name; ///< of the device to check; empty: all
    QString problem;
};

DevicesOptions parse(const QStringList &words)
{
    const QCommandLineOption json(QStringLiteral("json"));
    const QCommandLineOption check(QStringLiteral("check"));
    QCommandLineParser parser;
    parser.addOptions({json, check});
    DevicesOptions options;
    if (!parser.parse(QStringList(QStringLiteral("veskhdr")) + words))
        options.problem = parser.errorText();
    const QStringList names = parser.positionalArguments();
    if (names.size() > (parser.isSet(check) ? 1 : 0))
        options.problem = QStringLiteral("unexpected argument '%1', see 'veskhdr devices --help'")
                              .arg(names.last());
    options.json = parser.isSet(json);
    options.check = parser.isSet(check);
    options.name = names.value(0);
    return options;
}

/// What is printed of each device, and how the program ends.
struct Outcome
{
    QJsonArray json;
    QStringList lines;
    ExitCode code = ExitCode::Ok;
};

void list(const QList<Device> &devices, Outcome &outcome)
{
    for (const Device &device : devices) {
        outcome.json.append(command_line::toJson(device));
        outcome.lines.append(command_line::toLines(device));
    }
    if (devices.isEmpty())
        outcome.lines.append(QStringLiteral("There is no OpenCL device that the merge can use."));
}

QJsonObject toJson(const DeviceCheck &check)
{
    if (!check.problem.isEmpty())
        return {{QStringLiteral("problem"), check.problem}};
    return {
        {QStringLiteral("equal"), check.isEqual()},
        {QStringLiteral("bytes"), check.bytes},
        {QStringLiteral("differingBytes"), check.differingBytes},
        {QStringLiteral("deviceMilliseconds"), check.deviceMilliseconds},
        {QStringLiteral("processorMilliseconds"), check.processorMilliseconds},
    };
}

/// One sentence on standard error for a device that must not be used.
ExitCode judge(const QString &name, const DeviceCheck &check)
{
    if (check.isEqual())
        return ExitCode::Ok;
    if (!check.problem.isEmpty()) {
        console::complain(name, check.problem);
        return ExitCode::NoDevice;
    }
    console::complain(name, QStringLiteral("merges wrongly: %1 of %2 bytes differ from what the "
                                           "processor gives")
                                .arg(check.differingBytes)
                                .arg(check.bytes));
    return ExitCode::WrongResult;
}

QString times(const DeviceCheck &check)
{
    return QStringLiteral("device %1 ms, processor %2 ms")
        .arg(check.deviceMilliseconds)
        .arg(check.processorMilliseconds);
}

void checkEach(const QList<Device> &devices, Outcome &outcome)
{
    for (const Device &device : devices) {
        const DeviceCheck check = command_line::checkDevice(device.id);
        QJsonObject object = command_line::toJson(device);
        object.insert(QStringLiteral("check"), toJson(check));
        outcome.json.append(object);
        if (check.isEqual())
            outcome.lines.append(QStringLiteral("%1: equals the processor in all %2 bytes; %3")
                                     .arg(device.name, QString::number(check.bytes), times(check)));
        else if (check.problem.isEmpty())
            outcome.lines.append(QStringLiteral("%1: %2").arg(device.name, times(check)));
        outcome.code = std::max(outcome.code, judge(device.name, check));
    }
}

void check(const QString &name, QList<Device> devices, Outcome &outcome)
{
    if (!name.isEmpty())
        devices.erase(std::remove_if(devices.begin(), devices.end(),
                                     [&name](const Device &device) { return device.name != name; }),
                      devices.end());
    checkEach(devices, outcome);
    if (!devices.isEmpty())
        return;
    outcome.code = ExitCode::NoDevice;
    console::complain(name, name.isEmpty() ? QStringLiteral("there is no OpenCL device to check")
                                           : QStringLiteral("no such OpenCL device, see 'veskhdr "
                                                            "devices'"));
}

QString documentOf(const VeskDeviceInfo &registry, const QJsonArray &devices)
{
    const QJsonObject object{
        {QStringLiteral("platform"), registry.getOpenCLPlatform()},
        {QStringLiteral("version"), registry.getOpenCLVersion()},
        {QStringLiteral("devices"), devices},
    };
    return QString::fromUtf8(QJsonDocument(object).toJson()).trimmed();
}

} // namespace

ExitCode command_line::runDevices(const QStringList &words)
{
    const DevicesOptions options = parse(words);
    if (!options.problem.isEmpty()) {
        console::complain({}, QStringLiteral("devices: ") + options.problem);
        return ExitCode::Usage;
    }
    const VeskDeviceInfo &registry = *VeskDeviceInfo::getInstance();
    Outcome outcome;
    if (options.check)
        check(options.name, registry.getOpenCLDeviceList(), outcome);
    else
        list(registry.getOpenCLDeviceList(), outcome);
    if (options.json)
        console::print(documentOf(registry, outcome.json));
    else if (!outcome.lines.isEmpty())
        console::print(outcome.lines.join(QLatin1Char('\n')));
    return outcome.code;
}

QString command_line::devicesHelp()
{
    return QStringLiteral(
        R"(Usage: veskhdr devices [--json]
       veskhdr devices --check [NAME] [--json]

Lists the OpenCL devices that 'veskhdr merge --device NAME' can use, with what
they say of themselves: the devices of the first OpenCL platform, eight at most,
up to the first one whose name contains "intel".

Options:
  --check [NAME]    Merge a built-in set of pictures on the device of that name, or
                    on each, and on the processor; compare every byte, and show
                    how long both took
  --json            Print one JSON object
  --help            Show this text

Exit codes:
   0  listed, even if there is no device; each device checked merges rightly
  64  wrong options or arguments
  69  there is no such device, or it cannot merge
  70  a device gives other bytes than the processor
  74  standard output could not be written to its end)");
}
