// A file that claims to hold light, or to be of one of the newer kinds: its decoders, in all ways
// of reading it, and what is told of its header. Memory is short on purpose.

#include "InputFile.h"
#include "fuzz_require.h"
#include "fuzz_target.h"
#include "library_messages.h"
#include "metadata_reader.h"
#include "picture_decoder.h"
#include "picture_header.h"

#include <QFile>
#include <QGuiApplication>

#include <sys/resource.h>

namespace {

constexpr qint64 kPixelLimit = 1000 * 1000;

void requireSound(const DecodedPicture &decoded)
{
    const QImage &picture = decoded.image;
    FUZZ_REQUIRE(picture.isNull() == (decoded.error != DecodeError::None));
    FUZZ_REQUIRE(picture.isNull() != decoded.reason.isEmpty());
    FUZZ_REQUIRE(qint64(picture.width()) * picture.height() <= kPixelLimit);
    for (int y = 0; y < picture.height(); ++y)
        qChecksum(QByteArrayView(picture.constScanLine(y), picture.bytesPerLine()));
}

/// Sanitizers need all of the address space themselves.
void limitMemory()
{
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) && !defined(__clang__)
    constexpr rlim_t kBytes = rlim_t(1) << 30;
    const rlimit bounds = {kBytes, kBytes};
    setrlimit(RLIMIT_AS, &bounds);
#endif
}

} // namespace

int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    library_messages::silence();
    new QGuiApplication(*argc, *argv);
    limitMemory();
    return 0;
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const InputFile input(data, size);
    ReadOptions options;
    options.pixelLimit = kPixelLimit;
    options.light = ReadOptions::Light::Floats;
    options.colours = ReadOptions::Colours::True;
    requireSound(picture::decode(input.path(), options));
    options.light = ReadOptions::Light::Shown;
    requireSound(picture::decode(input.path(), options));
    options.depth = ReadOptions::Depth::AsStored;
    requireSound(picture::decode(input.path(), options));
    QFile file(input.path());
    FUZZ_REQUIRE(file.open(QIODevice::ReadOnly));
    const std::optional<PictureHeader> header = picture::headerOf(file);
    FUZZ_REQUIRE(!header || !header->format.isEmpty());
    metadata::read(input.path());
    return 0;
}
