#include "opencl_merge.h"

#include "VeskDeviceInfo.h"
#include "VeskEnDecodeTool.h"
#include "opencl_handles.h"

#include <QFile>
#include <QRgb>
#include <QtEndian>

#include <algorithm>
#include <ctime>
#include <memory>

namespace {

constexpr size_t kPixelBytes = 4;

/// Sizes of a merge; a band is what one pass merges.
struct Shape
{
    size_t width;
    size_t height;
    size_t count;
    size_t bandRows;

    size_t rowBytes() const { return width * kPixelBytes; }
};

/// bandRows is 0 when there is nothing to merge or not even one row fits.
Shape shapeOf(int width, int height, int count)
{
    if (width <= 0 || height <= 0 || count <= 0)
        return {0, 0, 0, 0};
    return {static_cast<size_t>(width), static_cast<size_t>(height), static_cast<size_t>(count),
            opencl::bandRows(width, count)};
}

/// What one merge creates on the device. A call that fails leaves null behind, and every later
/// call that needs the object then fails too, without harm.
class DeviceObjects
{
public:
    DeviceObjects(cl_device_id device, const Shape &shape);

    /// Merges the rows of one band. False when the device reported an error.
    bool mergeBand(const Shape &shape, size_t firstRow, size_t rows, unsigned char *out,
                   unsigned char *const *in) const;

private:
    void createProgram();
    /// The queue, or null when what a call needs is missing: the loader refuses a null queue, while
    /// some drivers crash on a null kernel or buffer.
    cl_command_queue queueIf(bool isUsable) const { return isUsable ? queue.get() : nullptr; }
    bool upload(const Shape &shape, size_t offset, size_t rows, unsigned char *const *in) const;
    bool launch(const Shape &shape, size_t rows) const;

    // Released from the last to the first.
    std::unique_ptr<char[]> programText;
    opencl::Context context;
    opencl::Program program;
    opencl::Queue queue;
    opencl::Kernel kernel;
    opencl::Memory input;
    opencl::Memory output;
};

DeviceObjects::DeviceObjects(cl_device_id device, const Shape &shape)
{
    const size_t bandBytes = shape.bandRows * shape.rowBytes();
    context.reset(clCreateContext(nullptr, 1, &device, nullptr, nullptr, nullptr));
    queue.reset(clCreateCommandQueue(context.get(), device, 0, nullptr));
    input.reset(
        clCreateBuffer(context.get(), CL_MEM_READ_ONLY, shape.count * bandBytes, nullptr, nullptr));
    output.reset(clCreateBuffer(context.get(), CL_MEM_WRITE_ONLY, bandBytes, nullptr, nullptr));
    createProgram();
}

void DeviceObjects::createProgram()
{
    size_t length = 0;
    programText.reset(LoadProgSource(opencl::kProgram, "", &length));
    const char *text = programText.get();
    program.reset(clCreateProgramWithSource(context.get(), 1, &text, &length, nullptr));
    clBuildProgram(program.get(), 0, nullptr, nullptr, nullptr, nullptr);
    kernel.reset(clCreateKernel(program.get(), opencl::kKernel, nullptr));
}

bool DeviceObjects::mergeBand(const Shape &shape, size_t firstRow, size_t rows, unsigned char *out,
                              unsigned char *const *in) const
{
    const size_t offset = firstRow * shape.rowBytes();
    const size_t bytes = rows * shape.rowBytes();
    const bool isUploaded = upload(shape, offset, rows, in);
    const bool isMerged = launch(shape, rows);
    const bool isRead = clEnqueueReadBuffer(queueIf(output != nullptr), output.get(), CL_TRUE, 0,
                                            bytes, out + offset, 0, nullptr, nullptr) == CL_SUCCESS;
    return isUploaded && isMerged && isRead;
}

/// The single byte ahead is overwritten at once, so that it may fail; it is part of the sequence
/// that drivers have always seen. In an empty band it comes from the picture's start, there is none
/// at its end.
bool DeviceObjects::upload(const Shape &shape, size_t offset, size_t rows,
                           unsigned char *const *in) const
{
    const size_t bytes = rows * shape.rowBytes();
    const cl_command_queue inputQueue = queueIf(input != nullptr);
    clEnqueueWriteBuffer(inputQueue, input.get(), CL_TRUE, 1, 1, rows > 0 ? in[0] + offset : in[0],
                         0, nullptr, nullptr);
    cl_int errors = CL_SUCCESS;
    for (size_t picture = 0; picture < shape.count; ++picture)
        errors |= clEnqueueWriteBuffer(inputQueue, input.get(), CL_TRUE, picture * bytes, bytes,
                                       in[picture] + offset, 0, nullptr, nullptr);
    return errors == CL_SUCCESS;
}

bool DeviceObjects::launch(const Shape &shape, size_t rows) const
{
    const cl_mem outputBuffer = output.get();
    const cl_mem inputBuffer = input.get();
    const auto width = static_cast<cl_int>(shape.width);
    const auto bandRows = static_cast<cl_int>(rows);
    const auto count = static_cast<cl_int>(shape.count);
    cl_int errors = clSetKernelArg(kernel.get(), 0, sizeof(outputBuffer), &outputBuffer);
    errors |= clSetKernelArg(kernel.get(), 1, sizeof(inputBuffer), &inputBuffer);
    errors |= clSetKernelArg(kernel.get(), 2, sizeof(width), &width);
    errors |= clSetKernelArg(kernel.get(), 3, sizeof(bandRows), &bandRows);
    errors |= clSetKernelArg(kernel.get(), 4, sizeof(count), &count);

    const size_t groups = (shape.width + opencl::kGroupWidth - 1) / opencl::kGroupWidth;
    const size_t globalSize[] = {groups * opencl::kGroupWidth, shape.bandRows};
    const size_t localSize[] = {opencl::kGroupWidth, 1};
    const bool isReady = errors == CL_SUCCESS && input && output;
    errors |= clEnqueueNDRangeKernel(queueIf(isReady), kernel.get(), 2, nullptr, globalSize,
                                     localSize, 0, nullptr, nullptr);
    errors |= clFinish(queue.get());
    return errors == CL_SUCCESS;
}

/// A device that fails half-way may have handed out memory that nobody wrote.
void makeBlack(const Shape &shape, size_t firstRow, size_t rows, unsigned char *out)
{
    unsigned char *pixel = out + firstRow * shape.rowBytes();
    for (size_t left = rows * shape.width; left > 0; --left, pixel += kPixelBytes)
        qToUnaligned(qRgb(0, 0, 0), pixel);
}

/// The program writes opaque pixels: one that is not opaque it has not written, whatever the device
/// said.
bool isWritten(const Shape &shape, size_t firstRow, size_t rows, const unsigned char *out)
{
    const unsigned char *pixel = out + firstRow * shape.rowBytes();
    quint32 all = ~quint32(0);
    for (size_t left = rows * shape.width; left > 0; --left, pixel += kPixelBytes)
        all &= qFromUnaligned<quint32>(pixel);
    return qAlpha(all) == 0xFF;
}

/// The last band has the rows that are left, often none; it is passed through the device all the
/// same. Drivers refuse transfers of no bytes, which is no failure of the merge.
bool mergeBands(const DeviceObjects &objects, const Shape &shape, unsigned char *out,
                unsigned char *const *in)
{
    bool isComplete = true;
    const size_t fullBands = shape.height / shape.bandRows;
    for (size_t band = 0; band <= fullBands; ++band) {
        const size_t firstRow = band * shape.bandRows;
        const size_t rows = band < fullBands ? shape.bandRows : shape.height % shape.bandRows;
        const bool isMerged = objects.mergeBand(shape, firstRow, rows, out, in);
        if (rows == 0 || (isMerged && isWritten(shape, firstRow, rows, out)))
            continue;
        makeBlack(shape, firstRow, rows, out);
        isComplete = false;
    }
    return isComplete;
}

} // namespace

char *LoadProgSource(const char *fileName, const char *preamble, size_t *length)
{
    Q_UNUSED(preamble)
    QFile file(QFile::decodeName(fileName));
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    const QByteArray cipherText = file.readAll();
    file.close();

    QString key;
    QString text;
    VeskEnDecodeTool::VeskGetMM(key);
    VeskEnDecodeTool::DES_Decrypt(cipherText, key, text);

    // The byte behind the text is zero: OpenCL takes the length of an empty text for "look for it".
    const QByteArray latin = text.toLatin1();
    auto program = std::make_unique<char[]>(static_cast<size_t>(latin.size()) + 1);
    std::copy(latin.begin(), latin.end(), program.get());
    *length = static_cast<size_t>(latin.size());
    return program.release();
}

size_t opencl::bandRows(int width, int count)
{
    return kBandPixels / (static_cast<size_t>(width) * static_cast<size_t>(count));
}

quint64 simpleOCLHDR(unsigned char *out, unsigned char **in, int width, int height, int count)
{
    if (shapeOf(width, height, count).bandRows == 0)
        return 0;
    const cl_device_id device = VeskDeviceInfo::getInstance()->getCurrentOpenCLDeviceID();
    return opencl::mergeWords(device, out, in, width, height, count).ticks;
}

opencl::Run opencl::mergeWords(cl_device_id device, unsigned char *out, unsigned char **in,
                               int width, int height, int count)
{
    const Shape shape = shapeOf(width, height, count);
    if (shape.bandRows == 0)
        return {};
    std::clock_t start = 0;
    bool isComplete = false;
    {
        const DeviceObjects objects(device, shape);
        start = std::clock();
        isComplete = mergeBands(objects, shape, out, in);
    }
    return {static_cast<quint64>(std::clock() - start), isComplete};
}
