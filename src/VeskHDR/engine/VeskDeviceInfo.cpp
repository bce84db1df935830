#include "VeskDeviceInfo.h"

#include "tool_settings.h"

#include <algorithm>
#include <array>

namespace {

constexpr cl_uint kMaxDevices = 8;
constexpr size_t kTextSize = 4096;

using Text = std::array<char, kTextSize>;

/// A driver that fills the whole buffer leaves no terminating zero.
QString toString(const Text &text)
{
    return QString::fromLatin1(text.data(), static_cast<int>(qstrnlen(text.data(), kTextSize)));
}

QString platformText(cl_platform_id platform, cl_platform_info info)
{
    Text text{};
    clGetPlatformInfo(platform, info, text.size(), text.data(), nullptr);
    return toString(text);
}

QString deviceText(cl_device_id device, cl_device_info info)
{
    Text text{};
    clGetDeviceInfo(device, info, text.size(), text.data(), nullptr);
    return toString(text);
}

/// A value of which a failing query wrote only a part is as unknown as one that it did not write.
template <typename Number>
void queryNumber(cl_device_id device, cl_device_info info, Number &number)
{
    if (clGetDeviceInfo(device, info, sizeof(number), &number, nullptr) != CL_SUCCESS)
        number = 0;
}

bool endsTheList(const QString &deviceName)
{
    return deviceName.toLower().contains(QLatin1String("intel"));
}

void queryNumbers(VeskDeviceInfo::OpenCLDevice &device)
{
    queryNumber(device.id, CL_DEVICE_MAX_COMPUTE_UNITS, device.computeUnits);
    queryNumber(device.id, CL_DEVICE_MAX_CLOCK_FREQUENCY, device.maxClockFrequency);
    queryNumber(device.id, CL_DEVICE_LOCAL_MEM_SIZE, device.localMemSize);
    queryNumber(device.id, CL_DEVICE_GLOBAL_MEM_SIZE, device.globalMemSize);
    queryNumber(device.id, CL_DEVICE_GLOBAL_MEM_CACHE_SIZE, device.globalCacheSize);
    queryNumber(device.id, CL_DEVICE_GLOBAL_MEM_CACHELINE_SIZE, device.globalCacheLineSize);
    queryNumber(device.id, CL_DEVICE_GLOBAL_MEM_CACHE_TYPE, device.globalCacheType);
    cl_bool imageSupport = CL_FALSE;
    queryNumber(device.id, CL_DEVICE_IMAGE_SUPPORT, imageSupport);
    device.imageSupport = imageSupport == CL_TRUE;
    queryNumber(device.id, CL_DEVICE_TYPE, device.type);
}

/// The facts of a device whose id and name are known.
void queryFacts(VeskDeviceInfo::OpenCLDevice &device)
{
    device.vendor = deviceText(device.id, CL_DEVICE_VENDOR);
    device.driverVersion = deviceText(device.id, CL_DRIVER_VERSION);
    queryNumbers(device);
    device.extensions = deviceText(device.id, CL_DEVICE_EXTENSIONS)
                            .split(QLatin1Char(' '), Qt::SkipEmptyParts, Qt::CaseSensitive);
}

} // namespace

VeskDeviceInfo *VeskDeviceInfo::getInstance()
{
    static auto *const instance = new VeskDeviceInfo;
    return instance;
}

VeskDeviceInfo::VeskDeviceInfo()
{
    getOpenCLInfo();
    readCurrentDeviceName();
}

void VeskDeviceInfo::getOpenCLInfo()
{
    cl_platform_id platform = nullptr;
    clGetPlatformIDs(1, &platform, nullptr);
    platformName = platformText(platform, CL_PLATFORM_NAME);
    platformVersion = platformText(platform, CL_PLATFORM_VERSION);

    deviceCount = 0;
    clGetDeviceIDs(platform, CL_DEVICE_TYPE_ALL, 0, nullptr, &deviceCount);
    if (deviceCount == 0)
        return;
    deviceCount = std::min(deviceCount, kMaxDevices);
    std::array<cl_device_id, kMaxDevices> ids{};
    clGetDeviceIDs(platform, CL_DEVICE_TYPE_ALL, deviceCount, ids.data(), &deviceCount);

    for (cl_device_id id : ids) {
        if (!id)
            return;
        OpenCLDevice device;
        device.id = id;
        device.name = deviceText(id, CL_DEVICE_NAME);
        if (endsTheList(device.name))
            return;
        queryFacts(device);
        devices.append(device);
    }
}

/// A corrected or defaulted name stays in memory until the user chooses a device. An empty name is
/// no choice, even where a device has no name.
void VeskDeviceInfo::readCurrentDeviceName()
{
    currentDeviceName = tool_settings::openCLDevice();
    const bool isChosen = !currentDeviceName.isEmpty() && currentDevice();
    if (!isChosen)
        currentDeviceName = devices.isEmpty() ? QString() : devices.first().name;
}

void VeskDeviceInfo::getCPUInfo()
{
}

void VeskDeviceInfo::getMemoryInfo()
{
}

QString VeskDeviceInfo::getOpenCLPlatform() const
{
    return platformName;
}

QString VeskDeviceInfo::getOpenCLVersion() const
{
    return platformVersion;
}

bool VeskDeviceInfo::isOpenCLCapable() const
{
    return !devices.isEmpty();
}

QList<VeskDeviceInfo::OpenCLDevice> VeskDeviceInfo::getOpenCLDeviceList() const
{
    return devices;
}

void VeskDeviceInfo::setCurrentOpenCLDeviceName(const QString &name)
{
    currentDeviceName = name;
    tool_settings::setOpenCLDevice(name);
}

QString VeskDeviceInfo::getCurrentOpenCLDeviceName()
{
    if (devices.isEmpty())
        return {};
    if (currentDeviceName.isEmpty())
        currentDeviceName = devices.first().name;
    return currentDevice() ? currentDeviceName : QString();
}

cl_device_id VeskDeviceInfo::getCurrentOpenCLDeviceID() const
{
    if (currentDeviceName.isEmpty())
        return nullptr;
    const OpenCLDevice *device = currentDevice();
    return device ? device->id : nullptr;
}

const VeskDeviceInfo::OpenCLDevice *VeskDeviceInfo::currentDevice() const
{
    const auto found =
        std::find_if(devices.begin(), devices.end(), [this](const OpenCLDevice &device) {
            return device.name == currentDeviceName;
        });
    return found == devices.end() ? nullptr : &*found;
}
