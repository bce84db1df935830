#include "VeskRaw.h"

#include <libraw/libraw.h>

#include <QCoreApplication>
#include <QFile>

namespace {

/// What the raw library says of files, for the catalogues.
[[maybe_unused]] constexpr const char *kReasonsOfLibrary[] = {
    QT_TRANSLATE_NOOP("VeskRaw", "Unspecified error"),
    QT_TRANSLATE_NOOP("VeskRaw", "Unsupported file format or not RAW file"),
    QT_TRANSLATE_NOOP("VeskRaw", "Unsufficient memory"),
    QT_TRANSLATE_NOOP("VeskRaw", "Corrupted data or unexpected EOF"),
    QT_TRANSLATE_NOOP("VeskRaw", "Input/output error"),
    QT_TRANSLATE_NOOP("VeskRaw", "Cancelled by user callback"),
    QT_TRANSLATE_NOOP("VeskRaw", "Image too big for processing"),
};

std::atomic<qint64> pixelLimitOfAll{VeskRaw::kDefaultPixelLimit};

VeskRaw::Conversion failure(const char *reason)
{
    return {QImage(), QCoreApplication::translate("VeskRaw", reason)};
}

int stopWhenCancelled(void *cancelled, LibRaw_progress, int, int)
{
    return *static_cast<const std::atomic<bool> *>(cancelled) ? 1 : 0;
}

/// Sets *isDamaged when raw meets damage in the file. The raw library itself would write to
/// standard error and go on with whatever it has read.
void reportDamageTo(LibRaw &raw, bool *isDamaged)
{
    // The type of the file position differs between releases.
    const auto noteDamage = [](void *flag, const char *, auto) {
        *static_cast<bool *>(flag) = true;
    };
    raw.set_dataerror_handler(noteDamage, isDamaged);
}

void chooseOutput(libraw_output_params_t &output, bool quick)
{
    output.use_camera_wb = 1;
    // Automatic brightness would level out the exposures of a bracket.
    output.no_auto_bright = 1;
    // White is taken from the brightest pixel only where the camera saturates a little below its
    // nominal white, which would tint highlights. The default also brightens dim pictures by that.
    output.adjust_maximum_thr = 0.9F;
    output.output_color = 1; // sRGB
    output.gamm[0] = 1.0 / 2.4;
    output.gamm[1] = 12.92;
    output.output_bps = 8;
    output.half_size = quick ? 1 : 0;
}

bool withinLimit(const libraw_image_sizes_t &sizes)
{
    const qint64 limit = pixelLimitOfAll;
    const qint64 sensor = qint64(sizes.raw_width) * sizes.raw_height;
    const qint64 shown = qint64(sizes.width) * sizes.height;
    return qMax(sensor, shown) <= limit;
}

/// Null when the raw library has an output that is neither grey nor colour, or memory is short.
QImage takePicture(LibRaw &raw)
{
    int width = 0;
    int height = 0;
    int colors = 0;
    int bitsPerSample = 0;
    raw.get_mem_image_format(&width, &height, &colors, &bitsPerSample);
    if (bitsPerSample != 8 || (colors != 1 && colors != 3))
        return {};
    QImage picture(width, height, colors == 3 ? QImage::Format_RGB888 : QImage::Format_Grayscale8);
    if (picture.isNull() ||
        raw.copy_mem_image(picture.bits(), picture.bytesPerLine(), 0) != LIBRAW_SUCCESS)
        return {};
    return picture.convertToFormat(QImage::Format_RGB32);
}

VeskRaw::Conversion convertWith(LibRaw &raw, const QString &path, bool quick,
                                const std::atomic<bool> *cancelled)
{
    bool isDamaged = false;
    reportDamageTo(raw, &isDamaged);
    chooseOutput(raw.imgdata.params, quick);
    if (cancelled)
        raw.set_progress_handler(&stopWhenCancelled, const_cast<std::atomic<bool> *>(cancelled));

    int result = raw.open_file(QFile::encodeName(path).constData());
    if (result != LIBRAW_SUCCESS)
        return failure(LibRaw::strerror(result));
    if (!withinLimit(raw.imgdata.sizes))
        return failure(QT_TRANSLATE_NOOP("VeskRaw", "The picture has more pixels than allowed"));
    result = raw.unpack();
    if (result != LIBRAW_SUCCESS)
        return failure(LibRaw::strerror(result));
    if (isDamaged)
        return failure(QT_TRANSLATE_NOOP("VeskRaw", "The file is damaged"));
    result = raw.dcraw_process();
    if (result != LIBRAW_SUCCESS)
        return failure(LibRaw::strerror(result));
    const QImage picture = takePicture(raw);
    if (picture.isNull())
        return failure(QT_TRANSLATE_NOOP("VeskRaw", "The converted picture cannot be taken over"));
    return {picture, QString()};
}

} // namespace

VeskRaw *VeskRaw::getInstance()
{
    static VeskRaw *const converter = new VeskRaw;
    return converter;
}

void VeskRaw::activate(const QString &path, QWidget *, bool quick)
{
    picture = QImage();
    cancelled = false;
    Conversion conversion = convert(path, quick, &cancelled);
    picture = std::move(conversion.picture);
    error = std::move(conversion.error);
}

QImage *VeskRaw::grabConvertedPicture()
{
    if (picture.isNull())
        return nullptr;
    auto *const grabbed = new QImage(std::move(picture));
    picture = QImage();
    return grabbed;
}

void VeskRaw::cancel()
{
    cancelled = true;
}

void VeskRaw::setPixelLimit(qint64 pixels)
{
    pixelLimitOfAll = pixels;
}

qint64 VeskRaw::pixelLimit()
{
    return pixelLimitOfAll;
}

VeskRaw::Conversion VeskRaw::convert(const QString &path, bool quick,
                                     const std::atomic<bool> *cancelled)
{
    try {
        // Too large for a thread's stack.
        const auto raw = std::make_unique<LibRaw>();
        return convertWith(*raw, path, quick, cancelled);
    } catch (const std::bad_alloc &) {
        return failure(QT_TRANSLATE_NOOP("VeskRaw", "Not enough memory"));
    } catch (...) {
        return failure(QT_TRANSLATE_NOOP("VeskRaw", "The raw library failed"));
    }
}
