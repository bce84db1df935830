#pragma once

#include "opencl_api.h"

#include <memory>
#include <type_traits>

/// OpenCL objects that are released with their owner; null for what could not be created.
namespace opencl {

template <typename Handle, auto Release>
struct Releaser
{
    using pointer = Handle;
    void operator()(Handle handle) const { Release(handle); }
};
template <typename Handle, auto Release>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, Releaser<Handle, Release>>;

using Context = Owned<cl_context, clReleaseContext>;
using Queue = Owned<cl_command_queue, clReleaseCommandQueue>;
using Program = Owned<cl_program, clReleaseProgram>;
using Kernel = Owned<cl_kernel, clReleaseKernel>;
using Memory = Owned<cl_mem, clReleaseMemObject>;

} // namespace opencl
