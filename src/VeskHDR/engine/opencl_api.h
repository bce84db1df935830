#pragma once

/// The OpenCL API as every part of the engine uses it: version 1.2, which all drivers offer.
#define CL_TARGET_OPENCL_VERSION 120
#ifdef __APPLE__
#define CL_SILENCE_DEPRECATION
#include <OpenCL/opencl.h>
#else
#include <CL/cl.h>
#endif
