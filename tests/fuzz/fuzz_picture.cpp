// A file that claims to be a picture: all decoders of the process, and the metadata reader.

#include "InputFile.h"
#include "exif_metadata.h"
#include "fuzz_require.h"
#include "fuzz_target.h"
#include "gain_map.h"
#include "iptc_data.h"
#include "library_messages.h"
#include "metadata_reader.h"
#include "picture_decoder.h"
#include "xmp_metadata.h"

#include <QGuiApplication>

namespace {

constexpr qint64 kPixelLimit = 1000 * 1000;

/// Reads every pixel, the way the merge does.
void requireReadable(const QImage &picture)
{
    FUZZ_REQUIRE(qint64(picture.width()) * picture.height() <= kPixelLimit);
    const QImage words = picture.convertToFormat(QImage::Format_ARGB32);
    FUZZ_REQUIRE(words.size() == picture.size());
    for (int y = 0; y < words.height(); ++y)
        qChecksum(QByteArrayView(words.constScanLine(y), 4 * words.width()));
    if (picture.format() == QImage::Format_Indexed8) {
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                FUZZ_REQUIRE(picture.pixelIndex(x, y) < picture.colorCount());
    }
}

void requireSound(const DecodedPicture &decoded)
{
    FUZZ_REQUIRE(decoded.image.isNull() == (decoded.error != DecodeError::None));
    FUZZ_REQUIRE(decoded.image.isNull() != decoded.reason.isEmpty());
    if (!decoded.image.isNull())
        requireReadable(decoded.image);
}

void requireSoundGainMap(const QString &path)
{
    QFile file(path);
    FUZZ_REQUIRE(file.open(QIODevice::ReadOnly));
    const std::optional<gain_map::Found> map = gain_map::read(file);
    if (!map || !map->problem.isEmpty())
        return;
    FUZZ_REQUIRE(!map->size.isEmpty());
    FUZZ_REQUIRE(map->terms.baseHeadroom != map->terms.alternateHeadroom);
    for (const GainMapTerms::Channel &channel : map->terms.channels)
        FUZZ_REQUIRE(channel.least <= channel.most && channel.gamma > 0.0);
}

} // namespace

int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    library_messages::silence();
    new QGuiApplication(*argc, *argv);
    return 0;
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const InputFile file(data, size);
    ReadOptions options;
    options.pixelLimit = kPixelLimit;
    requireSound(picture::decode(file.path(), options));
    options.depth = ReadOptions::Depth::AsStored;
    options.side = 16;
    requireSound(picture::decode(file.path(), options));
    options.side = 0;
    options.colours = ReadOptions::Colours::True;
    requireSound(picture::decode(file.path(), options));
    const ExifTags tags = exif::read(file.path());
    requireSoundGainMap(file.path());
    const QImage picture(3, 2, QImage::Format_RGB32);
    const exif::Adapted kept = exif::forUprightPicture(tags, picture, exif::kLargestJpegBlock);
    FUZZ_REQUIRE(!tags.isEmpty() || kept.tags.isEmpty());
    FUZZ_REQUIRE(kept.tags.block().size() <= exif::kLargestJpegBlock);
    const Metadata metadata = metadata::read(file.path());
    const xmp::Adapted adapted =
        xmp::forUprightPicture(metadata, picture, PictureFormat::Jpeg, nullptr);
    FUZZ_REQUIRE(adapted.packet.size() <= 65502);
    FUZZ_REQUIRE(iptc::forNewPixels(metadata.iptc).size() <= metadata.iptc.size());
    return 0;
}
