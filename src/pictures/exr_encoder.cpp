#include "exr_encoder.h"

#ifndef VESK_WITH_OPENEXR

bool exr_file::isAvailable()
{
    return false;
}

void exr_file::startThreads()
{
}

QString exr_file::encode(const QImage &, const PictureMetadata &, int, QIODevice &,
                         const EncodeProgress &)
{
    return PictureEncoder::tr("this program was built without OpenEXR");
}

#else

#include "Chromaticities.h"
#include "parallel_rows.h"

#include <ImfChannelList.h>
#include <ImfFrameBuffer.h>
#include <ImfIO.h>
#include <ImfOutputFile.h>
#include <ImfStandardAttributes.h>
#include <ImfThreading.h>

#include <algorithm>
#include <exception>
#include <mutex>
#include <vector>

namespace {

constexpr int kBlockRows = 32; // two blocks of ZIP compression, one for each of two cores

class DeviceStream : public Imf::OStream
{
public:
    explicit DeviceStream(QIODevice &target)
        : OStream("picture")
        , device(target)
    {
    }

    void write(const char *bytes, int length) override
    {
        if (!encoding::writeAll(device, bytes, length))
            throw std::bad_exception();
    }
    uint64_t tellp() override { return uint64_t(device.pos()); }
    void seekp(uint64_t place) override { device.seek(qint64(place)); }

private:
    QIODevice &device;
};

Imath::V2f vectorOf(QPointF point)
{
    return {float(point.x()), float(point.y())};
}

void addExposure(Imf::Header &header, const ExifTags &exif)
{
    using Directory = ExifTags::Directory;
    const auto seconds = exif.fraction(Directory::Exposure, ExifTags::ExposureTime);
    const auto fNumber = exif.fraction(Directory::Exposure, ExifTags::FNumber);
    const auto sensitivity = exif.number(Directory::Exposure, ExifTags::Sensitivity);
    const QString taken = exif.text(Directory::Exposure, ExifTags::DateTimeOriginal);
    if (seconds)
        Imf::addExpTime(header, float(*seconds));
    if (fNumber)
        Imf::addAperture(header, float(*fNumber));
    if (sensitivity)
        Imf::addIsoSpeed(header, float(*sensitivity));
    if (!taken.isEmpty())
        Imf::addCapDate(header, taken.toStdString());
}

Imf::Header headerOf(const QImage &picture, const PictureMetadata &metadata, Imf::PixelType type)
{
    Imf::Header header(picture.width(), picture.height());
    header.compression() = Imf::ZIP_COMPRESSION;
    for (const char *channel : {"R", "G", "B"})
        header.channels().insert(channel, Imf::Channel(type));
    const Chromaticities colours = Chromaticities::of(picture.colorSpace());
    Imf::addChromaticities(header, {vectorOf(colours.red), vectorOf(colours.green),
                                    vectorOf(colours.blue), vectorOf(colours.white)});
    if (metadata.whiteLuminance > 0.0)
        Imf::addWhiteLuminance(header, float(metadata.whiteLuminance));
    const encoding::Resolution resolution = encoding::resolutionOf(picture);
    if (resolution.x > 0.0)
        Imf::addXDensity(header, float(resolution.x));
    addExposure(header, metadata.exif);
    return header;
}

/// Three samples a pixel, for rows `begin` to `end`.
template <typename Sample, typename Convert>
void fillBlock(const QImage &picture, int begin, int end, std::vector<Sample> &samples,
               const Convert &convert)
{
    Sample *next = samples.data();
    for (int y = begin; y < end; ++y) {
        const auto *pixel = reinterpret_cast<const float *>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x, pixel += 4, next += 3)
            for (int c = 0; c < 3; ++c)
                next[c] = convert(pixel[c]);
    }
}

/// The library finds a row by its number in the picture, so the block's first sample is given as
/// far before the block as the rows above it would take.
template <typename Sample>
void setBlock(Imf::OutputFile &file, Imf::PixelType type, std::vector<Sample> &samples, int width,
              int begin)
{
    const size_t pixelBytes = 3 * sizeof(Sample);
    const size_t rowBytes = pixelBytes * size_t(width);
    Imf::FrameBuffer buffer;
    size_t channel = 0;
    for (const char *name : {"R", "G", "B"}) {
        auto *base = reinterpret_cast<char *>(samples.data()) + channel++ * sizeof(Sample);
        const auto origin = reinterpret_cast<uintptr_t>(base) - size_t(begin) * rowBytes;
        buffer.insert(name,
                      Imf::Slice(type, reinterpret_cast<char *>(origin), pixelBytes, rowBytes));
    }
    file.setFrameBuffer(buffer);
}

template <typename Sample, typename Convert>
void writeRows(Imf::OutputFile &file, Imf::PixelType type, const QImage &picture,
               const EncodeProgress &progress, const Convert &convert)
{
    std::vector<Sample> samples(3 * size_t(picture.width()) * kBlockRows);
    for (int begin = 0; begin < picture.height(); begin += kBlockRows) {
        const int end = std::min(begin + kBlockRows, picture.height());
        fillBlock(picture, begin, end, samples, convert);
        setBlock(file, type, samples, picture.width(), begin);
        file.writePixels(end - begin);
        if (progress)
            progress(double(end) / picture.height());
    }
}

void write(const QImage &picture, const PictureMetadata &metadata, int bitsPerSample,
           QIODevice &device, const EncodeProgress &progress)
{
    exr_file::startThreads();
    const Imf::PixelType type = bitsPerSample == 32 ? Imf::FLOAT : Imf::HALF;
    DeviceStream stream(device);
    Imf::OutputFile file(stream, headerOf(picture, metadata, type));
    if (type == Imf::FLOAT)
        writeRows<float>(file, type, picture, progress, [](float value) { return value; });
    else
        writeRows<half>(file, type, picture, progress,
                        [](float value) { return half(std::min(value, float(HALF_MAX))); });
}

} // namespace

bool exr_file::isAvailable()
{
    return true;
}

void exr_file::startThreads()
{
    static std::once_flag once;
    std::call_once(once, [] { Imf::setGlobalThreadCount(parallel::processorCount()); });
}

QString exr_file::encode(const QImage &picture, const PictureMetadata &metadata, int bitsPerSample,
                         QIODevice &device, const EncodeProgress &progress)
{
    try {
        write(picture, metadata, bitsPerSample, device, progress);
        return {};
    } catch (const std::exception &) {
        return PictureEncoder::tr("the OpenEXR file could not be written");
    }
}

#endif
