// A file that claims to be a camera's raw file.

#include "fuzz_require.h"
#include "fuzz_target.h"
#include "InputFile.h"
#include "VeskRaw.h"
#include "VeskRawType.h"

#include <QCoreApplication>

namespace {

constexpr qint64 kPixelLimit = 256 * 1024;

void requirePictureOrReason(const VeskRaw::Conversion &conversion)
{
    FUZZ_REQUIRE(conversion.picture.isNull() != conversion.error.isEmpty());
    if (conversion.picture.isNull())
        return;
    FUZZ_REQUIRE(conversion.picture.format() == QImage::Format_RGB32);
    const QImage &picture = conversion.picture;
    for (int y = 0; y < picture.height(); ++y)
        qChecksum(QByteArrayView(picture.constScanLine(y), 4 * picture.width()));
}

} // namespace

int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    new QCoreApplication(*argc, *argv);
    VeskRaw::setPixelLimit(kPixelLimit);
    return 0;
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const InputFile file(data, size);
    // Converted in any case: a raw suffix would bring more contents here.
    VeskRawType::isRaw(file.path());
    requirePictureOrReason(VeskRaw::convert(file.path(), false));
    requirePictureOrReason(VeskRaw::convert(file.path(), true));
    return 0;
}
