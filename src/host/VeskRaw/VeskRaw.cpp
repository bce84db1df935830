#include "VeskRaw.h"

#include "ConverterAnswer.h"
#include "ConverterProcess.h"
#include "libraw_conversion.h"

#include <libraw/libraw.h>

#include <QColorSpace>
#include <QCoreApplication>
#include <QFile>

#include <new>

#include <unistd.h>

namespace {

/// What LibRaw says of files, for the catalogues.
[[maybe_unused]] constexpr const char *kReasonsOfLibrary[] = {
    QT_TRANSLATE_NOOP("VeskRaw", "Unspecified error"),
    QT_TRANSLATE_NOOP("VeskRaw", "Unsupported file format or not RAW file"),
    QT_TRANSLATE_NOOP("VeskRaw", "Unsufficient memory"),
    QT_TRANSLATE_NOOP("VeskRaw", "Corrupted data or unexpected EOF"),
    QT_TRANSLATE_NOOP("VeskRaw", "Input/output error"),
    QT_TRANSLATE_NOOP("VeskRaw", "Cancelled by user callback"),
    QT_TRANSLATE_NOOP("VeskRaw", "Image too big for processing"),
};

constexpr qint64 kSmallestMemory = 1024LL * 1024 * 1024;
/// Pixels that are not square make a picture longer than the sensor's.
constexpr qint64 kLargestStretch = 4;

qint64 memoryOfMachine()
{
    const qint64 bytes = qint64(::sysconf(_SC_PHYS_PAGES)) * ::sysconf(_SC_PAGESIZE);
    return qMax(bytes, kSmallestMemory);
}

std::atomic<qint64> pixelLimitOfAll{VeskRaw::kDefaultPixelLimit};
std::atomic<qint64> memoryLimitOfAll{0}; // 0: the machine's
std::atomic<int> timeLimitOfAll{VeskRaw::kDefaultTimeLimitSeconds};
QString *converterProgram = nullptr;

const char *reasonFor(VeskRaw::Failure failure)
{
    switch (failure) {
    case VeskRaw::Failure::None:
        return "";
    case VeskRaw::Failure::NotRaw:
        return "Unsupported file format or not RAW file";
    case VeskRaw::Failure::Unreadable:
        return "Input/output error";
    case VeskRaw::Failure::Damaged:
        return QT_TRANSLATE_NOOP("VeskRaw", "The file is damaged");
    case VeskRaw::Failure::TooLarge:
        return QT_TRANSLATE_NOOP("VeskRaw", "The picture has more pixels than allowed");
    case VeskRaw::Failure::NoMemory:
        return QT_TRANSLATE_NOOP("VeskRaw", "Not enough memory");
    case VeskRaw::Failure::Library:
        return QT_TRANSLATE_NOOP("VeskRaw", "The raw library failed");
    case VeskRaw::Failure::CannotStart:
        return QT_TRANSLATE_NOOP("VeskRaw", "The raw converter cannot be started");
    case VeskRaw::Failure::Ended:
        return QT_TRANSLATE_NOOP("VeskRaw", "The raw converter ended before it was done");
    case VeskRaw::Failure::TimedOut:
        return QT_TRANSLATE_NOOP("VeskRaw", "The conversion took too long");
    case VeskRaw::Failure::Cancelled:
        return "Cancelled by user callback";
    }
    return "";
}

VeskRaw::Conversion failed(VeskRaw::Failure failure, const char *reason = nullptr)
{
    return {QImage(), QCoreApplication::translate("VeskRaw", reason ? reason : reasonFor(failure)),
            failure};
}

VeskRaw::Conversion failedAs(ConverterProcess::Reading reading)
{
    switch (reading) {
    case ConverterProcess::Reading::Cancelled:
        return failed(VeskRaw::Failure::Cancelled);
    case ConverterProcess::Reading::TimedOut:
        return failed(VeskRaw::Failure::TimedOut);
    default:
        return failed(VeskRaw::Failure::Ended);
    }
}

/// The program's numbers are those of raw::Failure, which begin like those of VeskRaw.
static_assert(int(raw::Failure::Library) == int(VeskRaw::Failure::Library) &&
              int(raw::Failure::Count) == int(VeskRaw::Failure::CannotStart));
static_assert(int(raw::ColourSpace::DisplayP3) == int(VeskRaw::ColourSpace::DisplayP3));

qint64 pixelLimitOf(const VeskRaw::Options &options)
{
    return options.pixelLimit > 0 ? options.pixelLimit : VeskRaw::pixelLimit();
}

QByteArrayList argumentsFor(const QString &path, const VeskRaw::Options &options)
{
    return {QFile::encodeName(path),
            QByteArray::number(pixelLimitOf(options)),
            QByteArray::number(int(options.quick)),
            QByteArray::number(options.bitsPerChannel == 16 ? 16 : 8),
            QByteArray::number(int(options.colourSpace)),
            QByteArray::number(int(options.isLinear)),
            QByteArray::number(VeskRaw::memoryLimit())};
}

bool isSensible(const ConverterAnswer &answer, qint64 pixelLimit)
{
    const qint64 limit = kLargestStretch * pixelLimit;
    return answer.magic == ConverterAnswer::kMagic &&
           answer.failure < std::uint32_t(raw::Failure::Count) &&
           (answer.failure != 0 || (answer.width > 0 && answer.height > 0 &&
                                    qint64(answer.width) * answer.height <= limit));
}

QColorSpace spaceOf(VeskRaw::ColourSpace space)
{
    switch (space) {
    case VeskRaw::ColourSpace::AdobeRgb:
        return QColorSpace::AdobeRgb;
    case VeskRaw::ColourSpace::ProPhotoRgb:
        return QColorSpace::ProPhotoRgb;
    case VeskRaw::ColourSpace::DisplayP3:
        return QColorSpace::DisplayP3;
    case VeskRaw::ColourSpace::Srgb:
        break;
    }
    return QColorSpace::SRgb;
}

void tag(QImage &picture, const VeskRaw::Options &options)
{
    const QColorSpace space = spaceOf(options.colourSpace);
    if (options.isLinear)
        picture.setColorSpace(space.withTransferFunction(QColorSpace::TransferFunction::Linear));
    else if (options.colourSpace != VeskRaw::ColourSpace::Srgb)
        picture.setColorSpace(space);
}

/// One conversion by the program.
class Run
{
public:
    Run(const VeskRaw::Options &wanted, const std::atomic<bool> *cancelledFlag)
        : options(wanted)
        , cancelled(cancelledFlag)
        , deadline(1000 * qint64(VeskRaw::timeLimit()))
    {
    }

    VeskRaw::Conversion convert(const QString &path)
    {
        const QString program =
            converterProgram ? *converterProgram : ConverterProcess::programPath();
        if (cancelled && *cancelled)
            return failed(VeskRaw::Failure::Cancelled);
        if (!process.start(program, argumentsFor(path, options)))
            return failed(VeskRaw::Failure::CannotStart);
        ConverterAnswer answer;
        const auto reading = read(reinterpret_cast<char *>(&answer), sizeof answer);
        if (reading == ConverterProcess::Reading::Ended)
            return failedWithoutAnswer();
        if (reading != ConverterProcess::Reading::Complete)
            return failedAs(reading);
        if (!isSensible(answer, pixelLimitOf(options)))
            return failed(VeskRaw::Failure::Ended);
        return answer.failure != 0 ? failedAs(answer) : readPicture(answer);
    }

private:
    ConverterProcess::Reading read(char *to, qint64 count)
    {
        return process.read(to, count, cancelled, deadline);
    }

    VeskRaw::Conversion failedWithoutAnswer()
    {
        const auto end = process.waitForEnd(cancelled, deadline);
        if (end != ConverterProcess::Reading::Ended)
            return failedAs(end);
        return failed(process.hasNotBeenLoaded() ? VeskRaw::Failure::CannotStart
                                                 : VeskRaw::Failure::Ended);
    }

    static VeskRaw::Conversion failedAs(const ConverterAnswer &answer)
    {
        return failed(VeskRaw::Failure(answer.failure),
                      answer.libraryError ? LibRaw::strerror(answer.libraryError) : nullptr);
    }
    static VeskRaw::Conversion failedAs(ConverterProcess::Reading reading)
    {
        return ::failedAs(reading);
    }

    VeskRaw::Conversion readPicture(const ConverterAnswer &answer)
    {
        const bool isDeep = options.bitsPerChannel == 16;
        QImage picture(answer.width, answer.height,
                       isDeep ? QImage::Format_RGBX64 : QImage::Format_RGB32);
        if (picture.isNull())
            return failed(VeskRaw::Failure::NoMemory);
        const qint64 rowBytes = qint64(answer.width) * (isDeep ? 8 : 4);
        for (int y = 0; y < answer.height; ++y) {
            const auto reading = read(reinterpret_cast<char *>(picture.scanLine(y)), rowBytes);
            if (reading != ConverterProcess::Reading::Complete)
                return failedAs(reading);
        }
        char more = 0;
        auto end = read(&more, 1);
        if (end == ConverterProcess::Reading::Complete) // rubbish behind the picture
            return failed(VeskRaw::Failure::Ended);
        if (end == ConverterProcess::Reading::Ended)
            end = process.waitForEnd(cancelled, deadline);
        if (end != ConverterProcess::Reading::Ended || !process.hasSucceeded())
            return failedAs(end);
        tag(picture, options);
        return {picture, QString(), VeskRaw::Failure::None};
    }

    ConverterProcess process;
    VeskRaw::Options options;
    const std::atomic<bool> *cancelled;
    QDeadlineTimer deadline;
};

} // namespace

VeskRaw *VeskRaw::getInstance()
{
    static VeskRaw *const converter = new VeskRaw;
    return converter;
}

void VeskRaw::activate(const QString &path, QWidget *, bool quick)
{
    last = Conversion();
    cancelled = false;
    last = convert(path, quick, &cancelled);
}

QImage *VeskRaw::grabConvertedPicture()
{
    if (last.picture.isNull())
        return nullptr;
    auto *const grabbed = new QImage(std::move(last.picture));
    last.picture = QImage();
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

void VeskRaw::setMemoryLimit(qint64 bytes)
{
    memoryLimitOfAll = bytes;
}

qint64 VeskRaw::memoryLimit()
{
    const qint64 bytes = memoryLimitOfAll;
    return bytes > 0 ? bytes : memoryOfMachine();
}

void VeskRaw::setTimeLimit(int seconds)
{
    timeLimitOfAll = seconds;
}

int VeskRaw::timeLimit()
{
    return timeLimitOfAll;
}

void VeskRaw::setConverterProgram(const QString &path)
{
    static QString program;
    program = path;
    converterProgram = path.isEmpty() ? nullptr : &program;
}

VeskRaw::Conversion VeskRaw::convert(const QString &path, bool quick,
                                     const std::atomic<bool> *cancelled)
{
    Options options;
    options.quick = quick;
    return convert(path, options, cancelled);
}

VeskRaw::Conversion VeskRaw::convert(const QString &path, const Options &options,
                                     const std::atomic<bool> *cancelled)
{
    try {
        return Run(options, cancelled).convert(path);
    } catch (const std::bad_alloc &) {
        return failed(Failure::NoMemory);
    }
}
