#pragma once

#include "opencl_api.h"
#include "veskhdr_export.h"

#include <QtGlobal>

#include <cstddef>

/// The deciphered text of an OpenCL program that the host's key enciphered.
/// fileName: a file or resource path. preamble: not used.
/// Returns a new array that the caller frees with delete[], and the text's length in bytes, in
/// which no terminating zero is counted; null, with length unchanged, when the file cannot be
/// opened. A text that cannot be deciphered is empty. Any thread, reentrant.
VESKHDR_EXPORT char *LoadProgSource(const char *fileName, const char *preamble, size_t *length);

/// Merges pictures on the current device of VeskDeviceInfo, band by band, to the same pixels as
/// mergeExposures.
/// in: count pictures of width x height words 0xAARRGGBB, rows of 4 * width bytes, borrowed.
/// out: one such picture, not overlapping; the caller makes it opaque black beforehand.
/// Returns the ticks of clock() spent, the building of the program not counted.
/// Errors: none are reported. The rows of a band that the device did not merge become opaque black.
/// Out stays as it is when there is no pixel, or when one row of all pictures has more than
/// 10485760 pixels.
/// Worker thread; VeskDeviceInfo::getInstance must have been called before.
VESKHDR_EXPORT quint64 simpleOCLHDR(unsigned char *out, unsigned char **in, int width, int height,
                                    int count);

/// The same on any device, for those who choose one themselves and want to know how it does.
namespace opencl {

/// Where the program lies, and what it asks of a device: the kernel, its work groups, and the upper
/// limit of the pixels in the input buffer, of all pictures together.
constexpr char kProgram[] = ":/hdr.cl_";
constexpr char kKernel[] = "simpleHDRoclKerneluchar";
constexpr size_t kGroupWidth = 128;
constexpr size_t kBandPixels = 0xA00000;

/// Rows that are merged at once; 0 when not even one row of all pictures fits. Both above 0.
size_t bandRows(int width, int count);

struct Run
{
    quint64 ticks = 0;
    bool isComplete = false; ///< the device reported no failure and every row is its work
};

/// simpleOCLHDR on this device; with null every call fails. Any thread.
Run mergeWords(cl_device_id device, unsigned char *out, unsigned char **in, int width, int height,
               int count);

} // namespace opencl
