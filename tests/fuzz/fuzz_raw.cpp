// A file that claims to be a camera's raw file, converted within the process: what may end the
// program that converts for the editor must not be an ordinary file.

#include "InputFile.h"
#include "VeskRawType.h"
#include "fuzz_require.h"
#include "fuzz_target.h"
#include "libraw_conversion.h"

#include <QCoreApplication>
#include <QFile>

namespace {

constexpr qint64 kPixelLimit = 256 * 1024;

void requirePictureOrReason(const raw::Conversion &conversion)
{
    FUZZ_REQUIRE((conversion.failure == raw::Failure::None) == !conversion.samples.empty());
    FUZZ_REQUIRE(conversion.failure < raw::Failure::Count);
    if (conversion.samples.empty())
        return;
    const int pixelBytes = conversion.bitsPerChannel / 2;
    std::vector<unsigned char> row(size_t(conversion.width) * size_t(pixelBytes));
    for (int y = 0; y < conversion.height; ++y) {
        raw::writeRow(conversion, y, row.data());
        qChecksum(QByteArrayView(row.data(), qsizetype(row.size())));
    }
}

} // namespace

int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    new QCoreApplication(*argc, *argv);
    return 0;
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const InputFile file(data, size);
    // Converted in any case: a raw suffix would bring more contents here.
    VeskRawType::isRaw(file.path());
    const QByteArray path = QFile::encodeName(file.path());
    raw::Options options;
    options.pixelLimit = kPixelLimit;
    requirePictureOrReason(raw::convert(path.constData(), options));
    options.quick = true;
    options.bitsPerChannel = 16;
    requirePictureOrReason(raw::convert(path.constData(), options));
    return 0;
}
