#include "exr_decoder.h"

#include "Chromaticities.h"
#include "LightRows.h"
#include "exr_encoder.h"

#include <ImfChannelList.h>
#include <ImfFrameBuffer.h>
#include <ImfIO.h>
#include <ImfInputFile.h>
#include <ImfPartType.h>
#include <ImfStandardAttributes.h>
#include <openexr.h>

#include <algorithm>
#include <exception>
#include <new>
#include <string>
#include <vector>

namespace {

constexpr int kBlockRows = 32;
constexpr int kNumbers = 4; // of a pixel

using Imath::Box2i;

bool isExr(QIODevice &file)
{
    return file.peek(4) == QByteArrayLiteral("\x76\x2F\x31\x01");
}

QSize sizeOf(const Box2i &window)
{
    const auto side = [](int first, int last) {
        return int(std::clamp<qint64>(qint64(last) - first + 1, 0, INT_MAX));
    };
    return {side(window.min.x, window.max.x), side(window.min.y, window.max.y)};
}

qint64 pixelsOf(QSize size)
{
    return qint64(size.width()) * size.height();
}

class DeviceStream : public Imf::IStream
{
public:
    explicit DeviceStream(QIODevice &source)
        : IStream("picture")
        , device(source)
    {
    }

    bool read(char *bytes, int length) override
    {
        if (device.read(bytes, length) != length)
            throw std::bad_exception();
        return !device.atEnd();
    }
    uint64_t tellg() override { return uint64_t(device.pos()); }
    void seekg(uint64_t place) override { device.seek(qint64(place)); }

private:
    QIODevice &device;
};

/// What the file's header says, asked before memory is taken for what it promises.
struct Promise
{
    bool isSound = false;
    Box2i data;
    Box2i display;
    qint64 chunks = 0; ///< of all parts
    int bitsPerSample = 0;
};

int64_t readAt(exr_const_context_t, void *device, void *bytes, uint64_t length, uint64_t place,
               exr_stream_error_func_ptr_t)
{
    auto *source = static_cast<QIODevice *>(device);
    return source->seek(qint64(place)) ? source->read(static_cast<char *>(bytes), qint64(length))
                                       : -1;
}

int64_t sizeOfDevice(exr_const_context_t, void *device)
{
    return static_cast<QIODevice *>(device)->size();
}

void keepSilent(exr_const_context_t, exr_result_t, const char *)
{
}

/// A file's header, by the part of the library that takes no memory for pixels.
class HeaderReader
{
public:
    explicit HeaderReader(QIODevice &device)
    {
        exr_context_initializer_t how = EXR_DEFAULT_CONTEXT_INITIALIZER;
        how.error_handler_fn = &keepSilent;
        how.user_data = &device;
        how.read_fn = &readAt;
        how.size_fn = &sizeOfDevice;
        isOpen = exr_start_read(&context, "picture", &how) == EXR_ERR_SUCCESS;
    }
    ~HeaderReader() { exr_finish(&context); }
    HeaderReader(const HeaderReader &) = delete;
    HeaderReader &operator=(const HeaderReader &) = delete;

    Promise promise() const
    {
        Promise told;
        int parts = 0;
        exr_attr_box2i_t data = {};
        exr_attr_box2i_t display = {};
        told.isSound = isOpen && exr_get_count(context, &parts) == EXR_ERR_SUCCESS && parts > 0 &&
                       exr_get_data_window(context, 0, &data) == EXR_ERR_SUCCESS &&
                       exr_get_display_window(context, 0, &display) == EXR_ERR_SUCCESS;
        told.data = {{data.min.x, data.min.y}, {data.max.x, data.max.y}};
        told.display = {{display.min.x, display.min.y}, {display.max.x, display.max.y}};
        for (int part = 0; told.isSound && part < parts; ++part) {
            int32_t chunks = 0;
            told.isSound = exr_get_chunk_count(context, part, &chunks) == EXR_ERR_SUCCESS;
            told.chunks += chunks;
        }
        told.bitsPerSample = told.isSound ? bits() : 0;
        return told;
    }

private:
    /// Of the widest channel.
    int bits() const
    {
        const exr_attr_chlist_t *channels = nullptr;
        int most = 0;
        if (exr_get_channels(context, 0, &channels) != EXR_ERR_SUCCESS)
            return 0;
        for (int i = 0; i < channels->num_channels; ++i)
            most = std::max(most, channels->entries[i].pixel_type == EXR_PIXEL_HALF ? 16 : 32);
        return most;
    }

    exr_context_t context = nullptr;
    bool isOpen = false;
};

Promise promiseOf(QIODevice &file)
{
    const Promise promise = HeaderReader(file).promise();
    file.seek(0);
    return promise;
}

/// The channels that the picture is made of.
struct Channels
{
    std::string red;
    std::string green;
    std::string blue;
    std::string alpha;
    bool isGrey = false; ///< red alone counts

    bool isNull() const { return red.empty(); }
    std::vector<std::string> names() const
    {
        return isGrey ? std::vector{red} : std::vector{red, green, blue};
    }
};

/// Those without a layer's name in front, or of the first layer that has them.
Channels channelsOf(const Imf::ChannelList &list)
{
    const auto has = [&list](const std::string &name) { return list.findChannel(name.c_str()); };
    std::vector<std::string> layers{""};
    for (auto channel = list.begin(); channel != list.end(); ++channel) {
        const std::string name = channel.name();
        const size_t dot = name.rfind('.');
        if (dot != std::string::npos)
            layers.push_back(name.substr(0, dot + 1));
    }
    for (const std::string &layer : layers) {
        const std::string alpha = has(layer + "A") ? layer + "A" : "";
        if (has(layer + "R") && has(layer + "G") && has(layer + "B"))
            return {layer + "R", layer + "G", layer + "B", alpha, false};
        if (has(layer + "Y") && !has(layer + "RY"))
            return {layer + "Y", {}, {}, alpha, true};
    }
    return {};
}

bool areWhole(const Imf::ChannelList &list, const Channels &channels)
{
    std::vector<std::string> names = channels.names();
    if (!channels.alpha.empty())
        names.push_back(channels.alpha);
    return std::all_of(names.begin(), names.end(), [&list](const std::string &name) {
        const Imf::Channel *channel = list.findChannel(name.c_str());
        return channel->xSampling == 1 && channel->ySampling == 1;
    });
}

QColorSpace spaceOf(const Imf::Header &header)
{
    if (!Imf::hasChromaticities(header))
        return QColorSpace(QColorSpace::SRgbLinear);
    const Imf::Chromaticities &told = Imf::chromaticities(header);
    const auto point = [](const Imath::V2f &at) { return QPointF(double(at.x), double(at.y)); };
    return Chromaticities{point(told.red), point(told.green), point(told.blue), point(told.white)}
        .linearSpace();
}

/// The file's rows, some at a time.
class Rows
{
public:
    Rows(Imf::InputFile &input, const Channels &wanted)
        : file(input)
        , channels(wanted)
        , window(input.header().dataWindow())
        , width(size_t(sizeOf(window).width()))
        , numbers(kNumbers * width * kBlockRows)
    {
    }

    /// Four numbers for each pixel of the data window's row, in which y lies. Ask in order.
    const float *row(int y)
    {
        if (y >= end)
            readFrom(y);
        return numbers.data() + kNumbers * width * size_t(y - begin);
    }

private:
    void readFrom(int y)
    {
        begin = y;
        end = int(std::min<qint64>(qint64(y) + kBlockRows, qint64(window.max.y) + 1));
        setBuffer();
        file.readPixels(begin, end - 1);
        if (channels.isGrey)
            spreadGrey();
    }

    /// The library finds a pixel by its place in the picture, so the block's first number is given
    /// as far ahead as the pixels before it would take.
    void setBuffer()
    {
        constexpr size_t kPixelBytes = kNumbers * sizeof(float);
        const size_t rowBytes = kPixelBytes * width;
        const auto slice = [&](size_t number, double absent) {
            const auto base = reinterpret_cast<uintptr_t>(numbers.data() + number) -
                              uintptr_t(qint64(begin)) * rowBytes -
                              uintptr_t(qint64(window.min.x)) * kPixelBytes;
            return Imf::Slice(Imf::FLOAT, reinterpret_cast<char *>(base), kPixelBytes, rowBytes, 1,
                              1, absent);
        };
        Imf::FrameBuffer buffer;
        size_t number = 0;
        for (const std::string &name : channels.names())
            buffer.insert(name, slice(number++, 0.0));
        buffer.insert(channels.alpha.empty() ? "no alpha" : channels.alpha, slice(3, 1.0));
        file.setFrameBuffer(buffer);
    }

    void spreadGrey()
    {
        for (size_t i = 0; i < numbers.size(); i += kNumbers)
            numbers[i + 1] = numbers[i + 2] = numbers[i];
    }

    Imf::InputFile &file;
    const Channels &channels;
    const Box2i window;
    const size_t width;
    std::vector<float> numbers;
    int begin = 0;
    int end = INT_MIN;
};

/// Lays the data window into the display window.
void fill(LightRows &rows, Rows &source, const Box2i &data, const Box2i &display, bool hasAlpha)
{
    const QSize size = sizeOf(display);
    const int left = std::max(data.min.x, display.min.x);
    const int right = std::min(data.max.x, display.max.x);
    const float outside[kNumbers] = {0, 0, 0, hasAlpha ? 0.0F : 1.0F};
    for (int y = 0; y < size.height(); ++y) {
        float *to = rows.row(y);
        for (int x = 0; x < size.width(); ++x)
            std::copy_n(outside, kNumbers, to + kNumbers * qint64(x));
        const qint64 line = qint64(display.min.y) + y;
        if (line >= data.min.y && line <= data.max.y && left <= right)
            std::copy_n(source.row(int(line)) + kNumbers * (qint64(left) - data.min.x),
                        kNumbers * (qint64(right) - left + 1),
                        to + kNumbers * (qint64(left) - display.min.x));
        rows.rowWritten(y);
    }
}

DecodedPicture read(Imf::InputFile &file, const ReadOptions &options)
{
    const Imf::Header &header = file.header();
    const Channels channels = channelsOf(header.channels());
    if (channels.isNull() || !areWhole(header.channels(), channels))
        return picture::unsupported(QStringLiteral("OpenEXR (such channels)"));
    LightRows::Layout layout;
    layout.size = sizeOf(header.displayWindow());
    layout.hasAlpha = layout.isMultiplied = !channels.alpha.empty();
    layout.space = spaceOf(header);
    LightRows rows(layout, options);
    if (rows.isNull())
        return picture::failure(DecodeError::NoMemory, layout.size);
    Rows source(file, channels);
    fill(rows, source, header.dataWindow(), header.displayWindow(), layout.hasAlpha);
    DecodedPicture decoded;
    decoded.image = rows.taken();
    if (decoded.image.isNull())
        return picture::failure(DecodeError::NoMemory, layout.size);
    if (Imf::hasWhiteLuminance(header))
        decoded.whiteLuminance = std::max(0.0F, Imf::whiteLuminance(header));
    return decoded;
}

DecodedPicture decodeKnown(QFile &file, const ReadOptions &options)
{
    constexpr qint64 kPlaceBytes = 8; // of a chunk, in a table at the file's beginning
    const Promise promise = promiseOf(file);
    const QSize size = sizeOf(promise.display);
    if (!promise.isSound || size.isEmpty() || promise.chunks * kPlaceBytes > file.size())
        return picture::failure(DecodeError::Damaged);
    const qint64 pixels = std::max(pixelsOf(size), pixelsOf(sizeOf(promise.data)));
    if (pixels > options.pixelLimit)
        return picture::failure(DecodeError::TooLarge, size);
    exr_file::startThreads();
    DeviceStream stream(file);
    Imf::InputFile input(stream);
    if (input.header().hasType() && Imf::isDeepData(input.header().type()))
        return picture::unsupported(QStringLiteral("OpenEXR (deep)"));
    return read(input, options);
}

} // namespace

std::optional<DecodedPicture> exr_decoder::decode(QFile &file, const ReadOptions &options)
{
    if (!isExr(file))
        return std::nullopt;
    try {
        return decodeKnown(file, options);
    } catch (const std::bad_alloc &) {
        return picture::failure(DecodeError::NoMemory);
    } catch (const std::exception &) {
        return picture::failure(DecodeError::Damaged);
    }
}

std::optional<PictureHeader> exr_decoder::headerOf(QIODevice &file)
{
    file.seek(0);
    const Promise promise = isExr(file) ? promiseOf(file) : Promise();
    if (!promise.isSound)
        return std::nullopt;
    PictureHeader header;
    header.format = QStringLiteral("OpenEXR");
    header.size = sizeOf(promise.display);
    header.isUpright = true;
    header.bitsPerSample = promise.bitsPerSample;
    return header;
}
