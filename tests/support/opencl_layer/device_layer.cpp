// An OpenCL layer between a program and the machine's own driver: it renames the devices, writes
// down the calls of a merge, lets calls fail, and falsifies results. The environment says what it
// does, read anew by every call:
//
//   VESK_LAYER_DEVICE_NAME   the name that every device answers
//   VESK_LAYER_RECORD        file to which every call of a merge is appended, a line each
//   VESK_LAYER_FAIL          "clCreateBuffer": every such call fails; "clCreateBuffer:2": the
//   second
//                            of a merge fails; "7": the seventh call of a merge fails; "7+": all
//                            calls of a merge from the seventh on fail, as on a lost device
//   VESK_LAYER_WRONG         "1": one bit of all that is read from the device is wrong
//   VESK_LAYER_POISON        "1": new buffers are full of bytes 0xAB, memory that nobody wrote
//   VESK_LAYER_IDLE          "1": no program runs on the device, though it says so
//   VESK_LAYER_GROUP_SIZE    the largest work group that a kernel is said to take
//   VESK_LAYER_DIVISION      units in the last place, "-2" to "2", by which the device's quotients
//                            are off; OpenCL allows that
//   VESK_LAYER_BUSY          a call, "clCreateKernel" say, that takes kBusyTicks of processor time
//   VESK_LAYER_HOLD          a file: no merge begins while it is there, but for kHoldLimit at most
//
// A merge begins with clCreateContext. A call that fails is not passed on, except a release. In the
// record handles stand as names, numbered in the order of their creation, and host memory as its
// address.

#include "layer_entry.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

namespace {

constexpr unsigned char kPoison = 0xAB;
constexpr std::clock_t kBusyTicks = CLOCKS_PER_SEC / 20;
constexpr std::chrono::seconds kHoldLimit(30);
constexpr cl_int kFailure = CL_OUT_OF_RESOURCES;

cl_icd_dispatch table;
cl_icd_dispatch below;

std::map<const void *, std::string> handleNames;
std::map<std::string, int> created;
std::map<std::string, int> callsByName;
int calls = 0;

std::string setting(const char *name)
{
    const char *value = std::getenv(name);
    return value ? value : "";
}

/// "name", "name:number", "number" or "number+"; see above.
bool mustFail(const std::string &call)
{
    const std::string rule = setting("VESK_LAYER_FAIL");
    if (rule.empty())
        return false;
    if (rule == call || rule == call + ":" + std::to_string(callsByName[call]))
        return true;
    return rule.back() == '+' ? calls >= std::atoi(rule.c_str()) : rule == std::to_string(calls);
}

void beBusy()
{
    const std::clock_t start = std::clock();
    while (std::clock() - start < kBusyTicks) {
    }
}

void waitWhileHeld()
{
    const std::string held = setting("VESK_LAYER_HOLD");
    const auto start = std::chrono::steady_clock::now();
    while (!held.empty() && std::ifstream(held) &&
           std::chrono::steady_clock::now() - start < kHoldLimit)
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
}

/// Counts the call. True when it must fail.
bool begin(const std::string &call)
{
    if (call == "clCreateContext") {
        waitWhileHeld();
        handleNames.clear();
        created.clear();
        callsByName.clear();
        calls = 0;
    }
    if (setting("VESK_LAYER_BUSY") == call)
        beBusy();
    ++calls;
    ++callsByName[call];
    return mustFail(call);
}

void print(std::ostream &line, const void *handle)
{
    const auto named = handleNames.find(handle);
    if (!handle)
        line << "null";
    else if (named != handleNames.end())
        line << named->second;
    else
        line << handle;
}

void print(std::ostream &line, const std::string &text)
{
    line << text;
}

void print(std::ostream &line, const char *text)
{
    line << text;
}

template <typename Number>
std::enable_if_t<std::is_arithmetic_v<Number>> print(std::ostream &line, Number number)
{
    line << number;
}

template <typename... Arguments>
void record(const std::string &call, const Arguments &...arguments)
{
    const std::string path = setting("VESK_LAYER_RECORD");
    if (path.empty())
        return;
    std::ofstream file(path, std::ios::app);
    file << call;
    ((file << ' ', print(file, arguments)), ...);
    file << '\n';
}

/// Names a new object and tells the caller of it.
template <typename Handle>
Handle introduce(const std::string &kind, Handle handle)
{
    if (handle)
        handleNames[handle] = kind + std::to_string(++created[kind]);
    return handle;
}

template <typename Handle>
Handle refuse(cl_int *error)
{
    if (error)
        *error = kFailure;
    return nullptr;
}

std::string sizes(cl_uint dimensions, const size_t *values)
{
    std::ostringstream text;
    for (cl_uint i = 0; values && i < dimensions; ++i)
        text << (i ? "x" : "") << values[i];
    return values ? text.str() : "null";
}

cl_int CL_API_CALL getDeviceInfo(cl_device_id device, cl_device_info info, size_t roomSize,
                                 void *room, size_t *sizeRet)
{
    const std::string name = setting("VESK_LAYER_DEVICE_NAME");
    if (info == CL_DEVICE_NAME && !name.empty())
        return layer::answer(name.c_str(), roomSize, room, sizeRet);
    return below.clGetDeviceInfo(device, info, roomSize, room, sizeRet);
}

cl_int CL_API_CALL getKernelWorkGroupInfo(cl_kernel kernel, cl_device_id device,
                                          cl_kernel_work_group_info info, size_t roomSize,
                                          void *room, size_t *sizeRet)
{
    const std::string size = setting("VESK_LAYER_GROUP_SIZE");
    if (info != CL_KERNEL_WORK_GROUP_SIZE || size.empty())
        return below.clGetKernelWorkGroupInfo(kernel, device, info, roomSize, room, sizeRet);
    const size_t limit = std::stoul(size);
    return layer::answer(&limit, sizeof(limit), roomSize, room, sizeRet);
}

cl_context CL_API_CALL createContext(const cl_context_properties *properties, cl_uint deviceCount,
                                     const cl_device_id *devices,
                                     void(CL_CALLBACK *notify)(const char *, const void *, size_t,
                                                               void *),
                                     void *userData, cl_int *error)
{
    const bool fails = begin("clCreateContext");
    cl_context context = nullptr;
    if (!fails)
        context = introduce("context", below.clCreateContext(properties, deviceCount, devices,
                                                             notify, userData, error));
    record("clCreateContext", properties, deviceCount, devices ? devices[0] : nullptr,
           reinterpret_cast<const void *>(notify), userData, "=", context);
    return fails ? refuse<cl_context>(error) : context;
}

cl_command_queue CL_API_CALL createCommandQueue(cl_context context, cl_device_id device,
                                                cl_command_queue_properties properties,
                                                cl_int *error)
{
    const bool fails = begin("clCreateCommandQueue");
    cl_command_queue queue = nullptr;
    if (!fails)
        queue = introduce("queue", below.clCreateCommandQueue(context, device, properties, error));
    record("clCreateCommandQueue", context, device, properties, "=", queue);
    return fails ? refuse<cl_command_queue>(error) : queue;
}

cl_mem createMemory(cl_context context, cl_mem_flags flags, size_t size, void *host, cl_int *error)
{
    if (setting("VESK_LAYER_POISON").empty() || host)
        return below.clCreateBuffer(context, flags, size, host, error);
    std::vector<unsigned char> poison(size, kPoison);
    return below.clCreateBuffer(context, flags | CL_MEM_COPY_HOST_PTR, size, poison.data(), error);
}

cl_mem CL_API_CALL createBuffer(cl_context context, cl_mem_flags flags, size_t size, void *host,
                                cl_int *error)
{
    const bool fails = begin("clCreateBuffer");
    cl_mem memory = nullptr;
    if (!fails)
        memory = introduce("memory", createMemory(context, flags, size, host, error));
    record("clCreateBuffer", context, flags, size, host, "=", memory);
    return fails ? refuse<cl_mem>(error) : memory;
}

/// The program with every quotient of the merge off by the given units in the last place.
std::string withDivisionError(std::string text, const std::string &units)
{
    const std::string quotient = "sum / weight";
    const std::string wrong =
        "(sum > 0.0f ? as_float(as_int(sum / weight) + (" + units + ")) : 0.0f)";
    const size_t place = text.find(quotient, text.find("uchar truncatedQuotient"));
    return place == std::string::npos ? "no quotient found"
                                      : text.replace(place, quotient.size(), wrong);
}

cl_program createProgram(cl_context context, cl_uint count, const char **texts,
                         const size_t *lengths, cl_int *error)
{
    const std::string units = setting("VESK_LAYER_DIVISION");
    if (units.empty() || !texts || !texts[0] || !lengths)
        return below.clCreateProgramWithSource(context, count, texts, lengths, error);
    const std::string changed = withDivisionError({texts[0], lengths[0]}, units);
    const char *text = changed.data();
    const size_t length = changed.size();
    return below.clCreateProgramWithSource(context, 1, &text, &length, error);
}

cl_program CL_API_CALL createProgramWithSource(cl_context context, cl_uint count,
                                               const char **texts, const size_t *lengths,
                                               cl_int *error)
{
    const bool fails = begin("clCreateProgramWithSource");
    cl_program program = nullptr;
    if (!fails)
        program = introduce("program", createProgram(context, count, texts, lengths, error));
    record("clCreateProgramWithSource", context, count, lengths ? lengths[0] : 0, "=", program);
    return fails ? refuse<cl_program>(error) : program;
}

cl_int CL_API_CALL buildProgram(cl_program program, cl_uint deviceCount,
                                const cl_device_id *devices, const char *options,
                                void(CL_CALLBACK *notify)(cl_program, void *), void *userData)
{
    const bool fails = begin("clBuildProgram");
    record("clBuildProgram", program, deviceCount, devices, static_cast<const void *>(options),
           reinterpret_cast<const void *>(notify), userData);
    return fails ? CL_BUILD_PROGRAM_FAILURE
                 : below.clBuildProgram(program, deviceCount, devices, options, notify, userData);
}

cl_kernel CL_API_CALL createKernel(cl_program program, const char *name, cl_int *error)
{
    const bool fails = begin("clCreateKernel");
    cl_kernel kernel = nullptr;
    if (!fails)
        kernel = introduce("kernel", below.clCreateKernel(program, name, error));
    record("clCreateKernel", program, std::string(name), "=", kernel);
    return fails ? refuse<cl_kernel>(error) : kernel;
}

cl_int CL_API_CALL enqueueWriteBuffer(cl_command_queue queue, cl_mem memory, cl_bool blocking,
                                      size_t offset, size_t size, const void *host,
                                      cl_uint waitCount, const cl_event *wait, cl_event *event)
{
    const bool fails = begin("clEnqueueWriteBuffer");
    record("clEnqueueWriteBuffer", queue, memory, blocking, offset, size, host, waitCount, wait,
           event);
    return fails ? kFailure
                 : below.clEnqueueWriteBuffer(queue, memory, blocking, offset, size, host,
                                              waitCount, wait, event);
}

cl_int CL_API_CALL setKernelArg(cl_kernel kernel, cl_uint index, size_t size, const void *value)
{
    const bool fails = begin("clSetKernelArg");
    if (size == sizeof(cl_mem))
        record("clSetKernelArg", kernel, index, size, *static_cast<const cl_mem *>(value));
    else
        record("clSetKernelArg", kernel, index, size, *static_cast<const cl_int *>(value));
    return fails ? kFailure : below.clSetKernelArg(kernel, index, size, value);
}

cl_int CL_API_CALL enqueueNDRangeKernel(cl_command_queue queue, cl_kernel kernel,
                                        cl_uint dimensions, const size_t *offset,
                                        const size_t *globalSize, const size_t *localSize,
                                        cl_uint waitCount, const cl_event *wait, cl_event *event)
{
    const bool fails = begin("clEnqueueNDRangeKernel");
    record("clEnqueueNDRangeKernel", queue, kernel, dimensions, sizes(dimensions, offset),
           sizes(dimensions, globalSize), sizes(dimensions, localSize), waitCount, wait, event);
    if (!fails && !setting("VESK_LAYER_IDLE").empty())
        return CL_SUCCESS;
    return fails ? kFailure
                 : below.clEnqueueNDRangeKernel(queue, kernel, dimensions, offset, globalSize,
                                                localSize, waitCount, wait, event);
}

cl_int CL_API_CALL finish(cl_command_queue queue)
{
    const bool fails = begin("clFinish");
    record("clFinish", queue);
    const cl_int result = below.clFinish(queue);
    return fails ? kFailure : result;
}

cl_int CL_API_CALL enqueueReadBuffer(cl_command_queue queue, cl_mem memory, cl_bool blocking,
                                     size_t offset, size_t size, void *host, cl_uint waitCount,
                                     const cl_event *wait, cl_event *event)
{
    const bool fails = begin("clEnqueueReadBuffer");
    record("clEnqueueReadBuffer", queue, memory, blocking, offset, size, host, waitCount, wait,
           event);
    if (fails)
        return kFailure;
    const cl_int result = below.clEnqueueReadBuffer(queue, memory, blocking, offset, size, host,
                                                    waitCount, wait, event);
    if (result == CL_SUCCESS && size > 0 && !setting("VESK_LAYER_WRONG").empty())
        static_cast<unsigned char *>(host)[size / 2] ^= 1;
    return result;
}

template <typename Handle, typename Release>
cl_int release(const std::string &call, Handle handle, Release releaseBelow)
{
    const bool fails = begin(call);
    record(call, handle);
    const cl_int result = releaseBelow(handle);
    return fails ? kFailure : result;
}

cl_int CL_API_CALL releaseMemObject(cl_mem memory)
{
    return release("clReleaseMemObject", memory, below.clReleaseMemObject);
}

cl_int CL_API_CALL releaseKernel(cl_kernel kernel)
{
    return release("clReleaseKernel", kernel, below.clReleaseKernel);
}

cl_int CL_API_CALL releaseCommandQueue(cl_command_queue queue)
{
    return release("clReleaseCommandQueue", queue, below.clReleaseCommandQueue);
}

cl_int CL_API_CALL releaseProgram(cl_program program)
{
    return release("clReleaseProgram", program, below.clReleaseProgram);
}

cl_int CL_API_CALL releaseContext(cl_context context)
{
    return release("clReleaseContext", context, below.clReleaseContext);
}

} // namespace

CL_API_ENTRY cl_int CL_API_CALL clGetLayerInfo(cl_layer_info info, size_t roomSize, void *room,
                                               size_t *sizeRet)
{
    return layer::layerInfo("device", info, roomSize, room, sizeRet);
}

CL_API_ENTRY cl_int CL_API_CALL clInitLayer(cl_uint entries, const cl_icd_dispatch *target,
                                            cl_uint *layerEntries,
                                            const cl_icd_dispatch **layerTable)
{
    std::memcpy(&below, target, std::min<size_t>(entries, layer::kTableEntries) * sizeof(void *));
    table = below;
    table.clGetDeviceInfo = getDeviceInfo;
    table.clGetKernelWorkGroupInfo = getKernelWorkGroupInfo;
    table.clCreateContext = createContext;
    table.clCreateCommandQueue = createCommandQueue;
    table.clCreateBuffer = createBuffer;
    table.clCreateProgramWithSource = createProgramWithSource;
    table.clBuildProgram = buildProgram;
    table.clCreateKernel = createKernel;
    table.clEnqueueWriteBuffer = enqueueWriteBuffer;
    table.clSetKernelArg = setKernelArg;
    table.clEnqueueNDRangeKernel = enqueueNDRangeKernel;
    table.clFinish = finish;
    table.clEnqueueReadBuffer = enqueueReadBuffer;
    table.clReleaseMemObject = releaseMemObject;
    table.clReleaseKernel = releaseKernel;
    table.clReleaseCommandQueue = releaseCommandQueue;
    table.clReleaseProgram = releaseProgram;
    table.clReleaseContext = releaseContext;
    *layerEntries = layer::kTableEntries;
    *layerTable = &table;
    return CL_SUCCESS;
}
