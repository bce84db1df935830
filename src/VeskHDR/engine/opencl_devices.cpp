#include "opencl_devices.h"

#include "VeskDeviceInfo.h"
#include "opencl_handles.h"
#include "opencl_merge.h"

#include <memory>

namespace {

constexpr cl_ulong kPixelBytes = 4;

template <typename Number>
Number fact(cl_device_id id, cl_device_info info)
{
    Number number = 0;
    clGetDeviceInfo(id, info, sizeof(number), &number, nullptr);
    return number;
}

QString withError(const QString &reason, cl_int error)
{
    return QStringLiteral("%1 (OpenCL error %2)").arg(reason).arg(error);
}

/// The compiler's first line, if it has any to say.
QString firstLineOfBuildLog(cl_program program, cl_device_id id)
{
    size_t size = 0;
    clGetProgramBuildInfo(program, id, CL_PROGRAM_BUILD_LOG, 0, nullptr, &size);
    QByteArray log(static_cast<int>(size), '\0');
    clGetProgramBuildInfo(program, id, CL_PROGRAM_BUILD_LOG, size, log.data(), nullptr);
    const QString line =
        QString::fromUtf8(log.constData()).trimmed().section(QLatin1Char('\n'), 0, 0);
    return line.isEmpty() ? line : QStringLiteral(": ") + line;
}

QString generalProblem(cl_device_id id)
{
    if (!fact<cl_bool>(id, CL_DEVICE_AVAILABLE))
        return QStringLiteral("the device is not available");
    if (!fact<cl_bool>(id, CL_DEVICE_COMPILER_AVAILABLE))
        return QStringLiteral("its driver cannot compile programs");
    if (!(fact<cl_device_fp_config>(id, CL_DEVICE_SINGLE_FP_CONFIG) & CL_FP_ROUND_TO_NEAREST))
        return QStringLiteral("it does not round to nearest, other pixels would come out");
    return {};
}

QString programProblem(cl_device_id id, cl_context context)
{
    size_t length = 0;
    const std::unique_ptr<char[]> text(LoadProgSource(opencl::kProgram, "", &length));
    const char *source = text.get();
    cl_int error = CL_SUCCESS;
    const opencl::Program program(clCreateProgramWithSource(context, 1, &source, &length, &error));
    if (!program)
        return withError(QStringLiteral("it does not take the program"), error);
    error = clBuildProgram(program.get(), 0, nullptr, nullptr, nullptr, nullptr);
    if (error != CL_SUCCESS)
        return withError(QStringLiteral("it cannot build the program"), error) +
               firstLineOfBuildLog(program.get(), id);
    const opencl::Kernel kernel(clCreateKernel(program.get(), opencl::kKernel, &error));
    if (!kernel)
        return withError(QStringLiteral("it does not find the kernel in the program"), error);
    size_t group = 0;
    clGetKernelWorkGroupInfo(kernel.get(), id, CL_KERNEL_WORK_GROUP_SIZE, sizeof(group), &group,
                             nullptr);
    if (group < opencl::kGroupWidth)
        return QStringLiteral("it takes groups of %1 work items at most, %2 are needed")
            .arg(group)
            .arg(opencl::kGroupWidth);
    return {};
}

QString memoryProblem(cl_device_id id, cl_context context, QSize size, int count)
{
    const cl_ulong bandRows = opencl::bandRows(size.width(), count);
    if (bandRows == 0)
        return QStringLiteral("a row of the %1 pictures has more than %2 pixels")
            .arg(count)
            .arg(opencl::kBandPixels);
    const cl_ulong outputBytes = bandRows * static_cast<cl_ulong>(size.width()) * kPixelBytes;
    const cl_ulong inputBytes = outputBytes * static_cast<cl_ulong>(count);
    const opencl::Memory input(
        clCreateBuffer(context, CL_MEM_READ_ONLY, inputBytes, nullptr, nullptr));
    const opencl::Memory output(
        clCreateBuffer(context, CL_MEM_WRITE_ONLY, outputBytes, nullptr, nullptr));
    if (!input || !output || inputBytes > fact<cl_ulong>(id, CL_DEVICE_MAX_MEM_ALLOC_SIZE))
        return QStringLiteral("it has not enough memory");
    return {};
}

} // namespace

cl_device_id opencl::findDevice(const QString &name)
{
    for (const VeskDeviceInfo::OpenCLDevice &device :
         VeskDeviceInfo::getInstance()->getOpenCLDeviceList()) {
        if (device.name == name)
            return device.id;
    }
    return nullptr;
}

QString opencl::deviceProblem(cl_device_id id, QSize size, int count)
{
    QString reason = generalProblem(id);
    if (!reason.isEmpty())
        return reason;
    cl_int error = CL_SUCCESS;
    const opencl::Context context(clCreateContext(nullptr, 1, &id, nullptr, nullptr, &error));
    if (!context)
        return withError(QStringLiteral("it cannot be opened"), error);
    const opencl::Queue queue(clCreateCommandQueue(context.get(), id, 0, &error));
    if (!queue)
        return withError(QStringLiteral("it takes no commands"), error);
    reason = programProblem(id, context.get());
    return reason.isEmpty() ? memoryProblem(id, context.get(), size, count) : reason;
}
