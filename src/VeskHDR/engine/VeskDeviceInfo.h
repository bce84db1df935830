#pragma once

#include "opencl_api.h"
#include "veskhdr_export.h"

#include <QList>
#include <QString>
#include <QStringList>

/// The OpenCL devices of the first platform, enumerated once, and the user's choice among them,
/// which is kept in the editor's settings file. Devices are identified by name throughout; the
/// handle is looked up when it is needed.
///
/// Enumeration: at most the platform's first eight devices are examined, in the platform's order.
/// A device whose name contains "intel", in any letter case, ends the list: neither it nor any
/// device after it is offered.
///
/// Errors: none are reported. Without OpenCL the texts, the list and the current name are empty and
/// the handle is null; a fact that a device does not tell is empty, 0 or false.
/// Thread: GUI only, except getCurrentOpenCLDeviceID, which a worker may call while the GUI thread
/// does not change the choice.
class VESKHDR_EXPORT VeskDeviceInfo
{
public:
    /// What a device says of itself, unchanged. Sizes in bytes.
    struct OpenCLDevice
    {
        cl_device_id id = nullptr; ///< borrowed from the driver, valid while the process lives
        QString name;
        QString vendor;
        QString driverVersion;
        cl_uint computeUnits = 0;
        cl_uint maxClockFrequency = 0; ///< MHz
        cl_ulong localMemSize = 0;
        cl_ulong globalMemSize = 0;
        cl_ulong globalCacheSize = 0;
        cl_uint globalCacheLineSize = 0;
        cl_device_mem_cache_type globalCacheType = CL_NONE;
        bool imageSupport = false;
        cl_device_type type = 0;
        QStringList extensions;
    };

    VeskDeviceInfo(const VeskDeviceInfo &) = delete;
    VeskDeviceInfo &operator=(const VeskDeviceInfo &) = delete;

    /// The one registry of the process. The first call enumerates the devices and reads the
    /// settings; devices that come or go later are not noticed. Never destroyed.
    static VeskDeviceInfo *getInstance();

    /// Reserved for facts of the processor and the memory; do nothing.
    void getCPUInfo();
    void getMemoryInfo();

    /// Name and version of the platform.
    QString getOpenCLPlatform() const;
    QString getOpenCLVersion() const;

    /// True when there is a device to choose.
    bool isOpenCLCapable() const;
    QList<OpenCLDevice> getOpenCLDeviceList() const;

    /// Makes name current, whether or not there is such a device, and writes it to the settings.
    void setCurrentOpenCLDeviceName(const QString &name);

    /// Name of the current device, null when no device has the current name. An empty current name
    /// becomes the first device's name, in memory only.
    QString getCurrentOpenCLDeviceName();

    /// Handle of the first device with the current name; null when there is none. Unlike the name,
    /// it never falls back to the first device.
    cl_device_id getCurrentOpenCLDeviceID() const;

protected:
    VeskDeviceInfo();
    ~VeskDeviceInfo() = default;

private:
    void getOpenCLInfo();
    void readCurrentDeviceName();
    const OpenCLDevice *currentDevice() const;

    QString platformName;
    QString platformVersion;
    cl_uint deviceCount = 0; ///< as the platform last told it, not the length of devices
    QList<OpenCLDevice> devices;
    QString currentDeviceName;
};
