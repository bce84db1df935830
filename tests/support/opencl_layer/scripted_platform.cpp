// An OpenCL layer that plays a platform, whatever drivers the machine has. The environment is the
// script, read anew by every call:
//
//   VESK_SCRIPT_PLATFORM        name of the platform; without it there is none
//   VESK_SCRIPT_DEVICES         names of its devices, separated by "|"; empty: it has no device
//   VESK_SCRIPT_EXTENSIONS      the extensions text of every device; one as long as the room for it
//                               comes without its terminating zero
//   VESK_SCRIPT_IMAGE_SUPPORT   the cl_bool that every device answers, 1 if not set
//   VESK_SCRIPT_FAIL            "ids": fetching the handles fails; "queries": every query fails
//   VESK_SCRIPT_RECORD          file to which every call is appended, a line each: the call, its
//                               numbers (in hexadecimal), "*" for memory to write to, "-" for none
//   VESK_SCRIPT_FACTS           numbers, vendors and driver versions of single devices,
//                               "device:query=fact", separated by "|"
//
// Every other fact of device k (from 0) is 1000 * k + the number of the query.

#include "layer_entry.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr size_t kMaxDevices = 16;

/// Handles are the addresses of these.
char thePlatform;
char theDevices[kMaxDevices];

cl_icd_dispatch table;

std::string scripted(const char *name)
{
    const char *value = std::getenv(name);
    return value ? value : "";
}

bool fails(const char *what)
{
    return scripted("VESK_SCRIPT_FAIL") == what;
}

std::vector<std::string> deviceNames()
{
    std::vector<std::string> names;
    std::istringstream list(scripted("VESK_SCRIPT_DEVICES"));
    for (std::string name; std::getline(list, name, '|');)
        names.push_back(name);
    return names;
}

void record(const char *call, std::uint64_t first, std::uint64_t second, const void *room,
            const void *sizeRet)
{
    const std::string path = scripted("VESK_SCRIPT_RECORD");
    if (path.empty())
        return;
    std::ofstream file(path, std::ios::app);
    file << call << std::hex << ' ' << first << ' ' << second << ' ' << (room ? '*' : '-') << ' '
         << (sizeRet ? '*' : '-') << '\n';
}

size_t deviceIndex(cl_device_id device)
{
    return static_cast<size_t>(reinterpret_cast<const char *>(device) - theDevices);
}

cl_int CL_API_CALL getPlatformIDs(cl_uint room, cl_platform_id *platforms, cl_uint *count)
{
    record("clGetPlatformIDs", room, 0, platforms, count);
    const bool exists = !scripted("VESK_SCRIPT_PLATFORM").empty();
    if (count)
        *count = exists ? 1 : 0;
    if (!exists)
        return -1001; // CL_PLATFORM_NOT_FOUND_KHR
    if (room > 0 && platforms)
        *platforms = reinterpret_cast<cl_platform_id>(&thePlatform);
    return CL_SUCCESS;
}

cl_int CL_API_CALL getPlatformInfo(cl_platform_id platform, cl_platform_info info, size_t roomSize,
                                   void *room, size_t *sizeRet)
{
    record("clGetPlatformInfo", info, roomSize, room, sizeRet);
    if (!platform || fails("queries"))
        return CL_INVALID_PLATFORM;
    if (info == CL_PLATFORM_NAME)
        return layer::answer(scripted("VESK_SCRIPT_PLATFORM").c_str(), roomSize, room, sizeRet);
    if (info == CL_PLATFORM_VERSION)
        return layer::answer("OpenCL 1.2 scripted", roomSize, room, sizeRet);
    return CL_INVALID_VALUE;
}

cl_int CL_API_CALL getDeviceIDs(cl_platform_id platform, cl_device_type type, cl_uint room,
                                cl_device_id *devices, cl_uint *count)
{
    record("clGetDeviceIDs", type, room, devices, count);
    const size_t available = std::min(deviceNames().size(), kMaxDevices);
    if (!platform)
        return CL_INVALID_PLATFORM;
    if (available == 0)
        return CL_DEVICE_NOT_FOUND;
    if (devices && fails("ids"))
        return CL_OUT_OF_HOST_MEMORY;
    for (size_t i = 0; devices && i < std::min<size_t>(room, available); ++i)
        devices[i] = reinterpret_cast<cl_device_id>(&theDevices[i]);
    if (count)
        *count = static_cast<cl_uint>(available);
    return CL_SUCCESS;
}

/// What the script says of a device, or else a number that tells device and query apart.
std::string scriptedFact(size_t device, cl_device_info info)
{
    std::istringstream list(scripted("VESK_SCRIPT_FACTS"));
    for (std::string fact; std::getline(list, fact, '|');) {
        const size_t colon = fact.find(':');
        if (std::stoul(fact.substr(0, colon)) == device &&
            std::stoul(fact.substr(colon + 1), nullptr, 0) == info)
            return fact.substr(fact.find('=') + 1);
    }
    return std::to_string(1000 * device + info);
}

cl_int answerNumber(cl_device_id device, cl_device_info info, size_t roomSize, void *room,
                    size_t *sizeRet)
{
    const std::uint64_t number = std::stoull(scriptedFact(deviceIndex(device), info));
    if (roomSize == sizeof(cl_ulong))
        return layer::answer(&number, sizeof(number), roomSize, room, sizeRet);
    const auto word = static_cast<cl_uint>(number);
    return layer::answer(&word, sizeof(word), roomSize, room, sizeRet);
}

cl_int answerExtensions(const std::string &text, size_t roomSize, void *room, size_t *sizeRet)
{
    const size_t size = text.size() == roomSize ? roomSize : text.size() + 1;
    return layer::answer(text.c_str(), size, roomSize, room, sizeRet);
}

cl_int CL_API_CALL getDeviceInfo(cl_device_id device, cl_device_info info, size_t roomSize,
                                 void *room, size_t *sizeRet)
{
    record("clGetDeviceInfo", info, roomSize, room, sizeRet);
    const std::vector<std::string> names = deviceNames();
    if (!device || deviceIndex(device) >= names.size())
        return CL_INVALID_DEVICE;
    if (fails("queries"))
        return CL_OUT_OF_HOST_MEMORY;
    switch (info) {
    case CL_DEVICE_NAME:
        return layer::answer(names[deviceIndex(device)].c_str(), roomSize, room, sizeRet);
    case CL_DEVICE_VENDOR:
    case CL_DRIVER_VERSION:
        return layer::answer(scriptedFact(deviceIndex(device), info).c_str(), roomSize, room,
                             sizeRet);
    case CL_DEVICE_EXTENSIONS:
        return answerExtensions(scripted("VESK_SCRIPT_EXTENSIONS"), roomSize, room, sizeRet);
    case CL_DEVICE_IMAGE_SUPPORT: {
        const std::string value = scripted("VESK_SCRIPT_IMAGE_SUPPORT");
        const auto support = static_cast<cl_bool>(value.empty() ? 1 : std::stoul(value));
        return layer::answer(&support, sizeof(support), roomSize, room, sizeRet);
    }
    default:
        return answerNumber(device, info, roomSize, room, sizeRet);
    }
}

} // namespace

CL_API_ENTRY cl_int CL_API_CALL clGetLayerInfo(cl_layer_info info, size_t roomSize, void *room,
                                               size_t *sizeRet)
{
    return layer::layerInfo("scripted platform", info, roomSize, room, sizeRet);
}

CL_API_ENTRY cl_int CL_API_CALL clInitLayer(cl_uint entries, const cl_icd_dispatch *target,
                                            cl_uint *layerEntries,
                                            const cl_icd_dispatch **layerTable)
{
    std::memcpy(&table, target, std::min<size_t>(entries, layer::kTableEntries) * sizeof(void *));
    table.clGetPlatformIDs = getPlatformIDs;
    table.clGetPlatformInfo = getPlatformInfo;
    table.clGetDeviceIDs = getDeviceIDs;
    table.clGetDeviceInfo = getDeviceInfo;
    *layerEntries = layer::kTableEntries;
    *layerTable = &table;
    return CL_SUCCESS;
}
