#include "libraw_conversion.h"

#include "display_p3.h"

#include <libraw/libraw.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

raw::Conversion failed(raw::Failure failure, int libraryError = 0)
{
    raw::Conversion conversion;
    conversion.failure = failure;
    conversion.libraryError = libraryError;
    return conversion;
}

/// Of a file that could be opened.
raw::Conversion failedWith(int libraryError)
{
    switch (libraryError) {
    case LIBRAW_FILE_UNSUPPORTED:
        return failed(raw::Failure::NotRaw, libraryError);
    case LIBRAW_UNSUFFICIENT_MEMORY:
    case LIBRAW_MEMPOOL_OVERFLOW:
        return failed(raw::Failure::NoMemory, libraryError);
    case LIBRAW_DATA_ERROR:
    case LIBRAW_IO_ERROR: // also where the file ends too soon
    case LIBRAW_BAD_CROP:
        return failed(raw::Failure::Damaged, libraryError);
    case LIBRAW_TOO_BIG:
        return failed(raw::Failure::TooLarge, libraryError);
    default:
        return failed(raw::Failure::Library, libraryError);
    }
}

raw::Failure failureOf(LibRaw_exceptions exception)
{
    switch (exception) {
    case LIBRAW_EXCEPTION_ALLOC:
    case LIBRAW_EXCEPTION_MEMPOOL:
        return raw::Failure::NoMemory;
    case LIBRAW_EXCEPTION_TOOBIG:
        return raw::Failure::TooLarge;
    case LIBRAW_EXCEPTION_NONE:
        return raw::Failure::Library;
    default:
        return raw::Failure::Damaged;
    }
}

bool canOpen(const char *path)
{
    std::FILE *const file = std::fopen(path, "rb");
    if (file)
        std::fclose(file);
    return file != nullptr;
}

/// Sets *isDamaged when library meets damage in the file. LibRaw itself would write to standard
/// error and go on with whatever it has read.
void reportDamageTo(LibRaw &library, bool *isDamaged)
{
    // The type of the file position differs between releases.
    const auto noteDamage = [](void *flag, const char *, auto) {
        *static_cast<bool *>(flag) = true;
    };
    library.set_dataerror_handler(noteDamage, isDamaged);
}

void chooseColours(libraw_output_params_t &output, const raw::Options &options)
{
    struct Encoding
    {
        int space; ///< in LibRaw's numbering
        double gamma, slope;
    };
    static constexpr Encoding kEncodings[] = {{1, 1.0 / 2.4, 12.92},
                                              {2, 256.0 / 563, 0},
                                              {4, 1.0 / 1.8, 16},
                                              {4, 1, 1} /* linear, for display_p3 */};
    const Encoding &encoding = kEncodings[static_cast<std::uint32_t>(options.colourSpace)];
    output.output_color = encoding.space;
    output.gamm[0] = options.isLinear ? 1 : encoding.gamma;
    output.gamm[1] = options.isLinear ? 1 : encoding.slope;
}

bool isForDisplayP3(const raw::Options &options)
{
    return options.colourSpace == raw::ColourSpace::DisplayP3;
}

int libraryBits(const raw::Options &options)
{
    return isForDisplayP3(options) ? 16 : options.bitsPerChannel;
}

void chooseOutput(libraw_output_params_t &output, const raw::Options &options)
{
    output.use_camera_wb = 1;
    // Automatic brightness would level out the exposures of a bracket.
    output.no_auto_bright = 1;
    // White is taken from the brightest pixel only where the camera saturates a little below its
    // nominal white, which would tint highlights. The default also brightens dim pictures by that.
    output.adjust_maximum_thr = 0.9F;
    chooseColours(output, options);
    output.output_bps = libraryBits(options);
    output.half_size = options.quick ? 1 : 0;
}

bool withinLimit(const libraw_image_sizes_t &sizes, std::int64_t limit)
{
    const std::int64_t sensor = std::int64_t(sizes.raw_width) * sizes.raw_height;
    const std::int64_t shown = std::int64_t(sizes.width) * sizes.height;
    return std::max(sensor, shown) <= limit;
}

/// Fails when LibRaw has an output that is neither grey nor colour.
raw::Conversion takePicture(LibRaw &library, int bitsWanted)
{
    raw::Conversion taken;
    library.get_mem_image_format(&taken.width, &taken.height, &taken.channels,
                                 &taken.bitsPerChannel);
    if (taken.width <= 0 || taken.height <= 0) // LibRaw has got no memory and forgets to say so
        return failed(raw::Failure::NoMemory);
    if (taken.bitsPerChannel != bitsWanted || (taken.channels != 1 && taken.channels != 3))
        return failed(raw::Failure::Library);
    const int rowBytes = taken.width * taken.channels * taken.bitsPerChannel / 8;
    taken.samples.resize(std::size_t(rowBytes) * std::size_t(taken.height));
    const int result = library.copy_mem_image(taken.samples.data(), rowBytes, 0);
    return result == LIBRAW_SUCCESS ? std::move(taken) : failedWith(result);
}

void turnToDisplayP3(raw::Conversion &picture, const raw::Options &options)
{
    auto *const samples = reinterpret_cast<std::uint16_t *>(picture.samples.data());
    const std::int64_t pixels = std::int64_t(picture.width) * picture.height;
    display_p3::turn(samples, pixels, picture.channels);
    if (!options.isLinear)
        display_p3::encode(samples, pixels * picture.channels);
    if (options.bitsPerChannel == 16)
        return;
    const std::size_t count = picture.samples.size() / 2;
    for (std::size_t i = 0; i < count; ++i) // the upper byte, as LibRaw does
        picture.samples[i] = static_cast<unsigned char>(samples[i] >> 8);
    picture.samples.resize(count);
    picture.bitsPerChannel = 8;
}

raw::Conversion convertWith(LibRaw &library, const char *path, const raw::Options &options)
{
    bool isDamaged = false;
    reportDamageTo(library, &isDamaged);
    chooseOutput(library.imgdata.params, options);
    int result = library.open_file(path);
    if (result != LIBRAW_SUCCESS)
        return failedWith(result);
    if (!withinLimit(library.imgdata.sizes, options.pixelLimit))
        return failed(raw::Failure::TooLarge);
    result = library.unpack();
    if (result != LIBRAW_SUCCESS)
        return failedWith(result);
    if (isDamaged)
        return failed(raw::Failure::Damaged);
    result = library.dcraw_process();
    if (result != LIBRAW_SUCCESS)
        return failedWith(result);
    raw::Conversion taken = takePicture(library, libraryBits(options));
    if (isForDisplayP3(options) && taken.failure == raw::Failure::None)
        turnToDisplayP3(taken, options);
    return taken;
}

/// One pixel of count samples becomes red, green, blue.
template <typename Sample>
void readPixel(const unsigned char *from, int channels, Sample (&pixel)[3])
{
    std::memcpy(pixel, from, sizeof(Sample) * std::size_t(channels));
    if (channels == 1)
        pixel[1] = pixel[2] = pixel[0];
}

void writeWord(const unsigned char (&pixel)[3], unsigned char *to)
{
    const std::uint32_t word = 0xFF000000U | std::uint32_t(pixel[0]) << 16 |
                               std::uint32_t(pixel[1]) << 8 | std::uint32_t(pixel[2]);
    std::memcpy(to, &word, sizeof word);
}

void writeWord(const std::uint16_t (&pixel)[3], unsigned char *to)
{
    const std::uint16_t words[4] = {pixel[0], pixel[1], pixel[2], 0xFFFF};
    std::memcpy(to, words, sizeof words);
}

template <typename Sample>
void writeRowOf(const raw::Conversion &picture, int y, unsigned char *row)
{
    const std::size_t pixelBytes = std::size_t(picture.channels) * sizeof(Sample);
    const unsigned char *from =
        picture.samples.data() + std::size_t(y) * std::size_t(picture.width) * pixelBytes;
    for (int x = 0; x < picture.width; ++x) {
        Sample pixel[3];
        readPixel(from, picture.channels, pixel);
        writeWord(pixel, row);
        from += pixelBytes;
        row += 4 * sizeof(Sample);
    }
}

} // namespace

raw::Conversion raw::convert(const char *path, const Options &options)
{
    if (!canOpen(path))
        return failed(Failure::Unreadable);
    try {
        // Too large for a thread's stack.
        const auto library = std::make_unique<LibRaw>();
        return convertWith(*library, path, options);
    } catch (...) {
        return failed(failureInFlight());
    }
}

raw::Failure raw::failureInFlight()
{
    try {
        throw;
    } catch (const std::bad_alloc &) {
        return Failure::NoMemory;
    } catch (LibRaw_exceptions exception) { // those of its threads pass by its own handlers
        return failureOf(exception);
    } catch (...) {
        return Failure::Library;
    }
}

void raw::writeRow(const Conversion &picture, int y, unsigned char *row)
{
    if (picture.bitsPerChannel == 8)
        writeRowOf<unsigned char>(picture, y, row);
    else
        writeRowOf<std::uint16_t>(picture, y, row);
}
