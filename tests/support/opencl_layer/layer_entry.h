#pragma once

#define CL_TARGET_OPENCL_VERSION 300
#include <CL/cl_layer.h>

#include <cstddef>
#include <cstring>

/// What the OpenCL loader asks of a layer: its version, its name, and a table of calls, of which it
/// gets those below it in return. A layer is loaded when OPENCL_LAYERS names its file at the first
/// OpenCL call of a process.
namespace layer {

/// Answers an information query the way OpenCL does.
inline cl_int answer(const void *value, size_t size, size_t roomSize, void *room, size_t *sizeRet)
{
    if (room && roomSize < size)
        return CL_INVALID_VALUE;
    if (room)
        std::memcpy(room, value, size);
    if (sizeRet)
        *sizeRet = size;
    return CL_SUCCESS;
}

inline cl_int answer(const char *text, size_t roomSize, void *room, size_t *sizeRet)
{
    return answer(text, std::strlen(text) + 1, roomSize, room, sizeRet);
}

inline cl_int layerInfo(const char *name, cl_layer_info info, size_t roomSize, void *room,
                        size_t *sizeRet)
{
    const cl_layer_api_version version = CL_LAYER_API_VERSION_100;
    if (info == CL_LAYER_API_VERSION)
        return answer(&version, sizeof(version), roomSize, room, sizeRet);
    if (info == CL_LAYER_NAME)
        return answer(name, roomSize, room, sizeRet);
    return CL_INVALID_VALUE;
}

constexpr cl_uint kTableEntries = sizeof(cl_icd_dispatch) / sizeof(void *);

} // namespace layer
