#include "merge_command.h"

#include "MergeOptions.h"
#include "MergeReport.h"
#include "ProgressBar.h"
#include "console.h"
#include "exif_metadata.h"
#include "file_names.h"
#include "interrupt_cleanup.h"
#include "library_messages.h"
#include "merge_pictures.h"
#include "mtb_shifts.h"
#include "opencl_devices.h"
#include "picture_loader.h"

#include <QElapsedTimer>

#include <filesystem>
#include <memory>
#include <new>

namespace {

// Where the bar stands after each step.
constexpr double kDecoded = 0.3;
constexpr double kAligned = 0.6;
constexpr double kMerged = 0.7;

ExitCode exitCodeOf(DecodeError error)
{
    switch (error) {
    case DecodeError::None:
        return ExitCode::Ok;
    case DecodeError::Missing:
    case DecodeError::Directory:
    case DecodeError::NotRegularFile:
    case DecodeError::NoPermission:
    case DecodeError::Unreadable:
        return ExitCode::NoInput;
    case DecodeError::NoMemory:
        return ExitCode::NoMemory;
    case DecodeError::Empty:
    case DecodeError::NotAPicture:
    case DecodeError::Unsupported:
    case DecodeError::Damaged:
    case DecodeError::TooLarge:
    case DecodeError::Cancelled:
        break;
    }
    return ExitCode::BadData;
}

ExitCode exitCodeOf(OutputFile::Error error)
{
    switch (error) {
    case OutputFile::Error::None:
        return ExitCode::Ok;
    case OutputFile::Error::WriteFailed:
        return ExitCode::WriteFailed;
    case OutputFile::Error::Exists:
    case OutputFile::Error::CannotCreate:
        break;
    }
    return ExitCode::CannotCreate;
}

bool isSameFile(const QString &one, const QString &other)
{
    std::error_code ignored;
    return std::filesystem::equivalent(file_names::toBytes(one).toStdString(),
                                       file_names::toBytes(other).toStdString(), ignored);
}

/// One merge from the files to the file. The steps run in the order in which they stand here; each
/// says what is wrong, if anything is.
class Merge
{
public:
    explicit Merge(const MergeOptions &mergeOptions)
        : options(mergeOptions)
    {
    }
    ~Merge() { qDeleteAll(pictures); }
    Merge(const Merge &) = delete;
    Merge &operator=(const Merge &) = delete;

    ExitCode run();

private:
    ExitCode checkOutput();
    ExitCode findDevice();
    ExitCode decode();
    ExitCode checkSizes();
    ExitCode checkDevice();
    void begin(merge::Step step);
    ExitCode mergePictures();
    ExitCode crop();
    ExitCode encode();
    ExitCode timed(ExitCode (Merge::*step)(), qint64 &milliseconds);
    ExitCode refuse(ExitCode code, const QString &file, const QString &reason);
    void warnOfLimits();
    void tell();

    const MergeOptions &options;
    QList<QImage *> pictures;      ///< in merge order; owned
    cl_device_id device = nullptr; ///< null: the processor merges
    std::unique_ptr<QImage> merged;
    MergeReport report;
    ProgressBar bar;
    QElapsedTimer stepTimer;
};

ExitCode Merge::refuse(ExitCode code, const QString &file, const QString &reason)
{
    bar.clear();
    console::complain(file, reason);
    return code;
}

ExitCode Merge::timed(ExitCode (Merge::*step)(), qint64 &milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    const ExitCode code = (this->*step)();
    milliseconds = timer.elapsed();
    return code;
}

ExitCode Merge::run()
{
    QElapsedTimer timer;
    timer.start();
    MergeReport::Times &times = report.milliseconds;
    ExitCode code = checkOutput();
    if (code == ExitCode::Ok)
        code = findDevice();
    if (code == ExitCode::Ok)
        code = timed(&Merge::decode, times.decode);
    if (code == ExitCode::Ok)
        code = checkSizes();
    if (code == ExitCode::Ok)
        code = checkDevice();
    if (code == ExitCode::Ok)
        code = mergePictures();
    if (code == ExitCode::Ok && options.crop)
        code = crop();
    if (code == ExitCode::Ok)
        code = timed(&Merge::encode, times.encode);
    times.total = timer.elapsed();
    if (code == ExitCode::Ok)
        tell();
    return code;
}

ExitCode Merge::checkOutput()
{
    OutputFile output(options.output, options.mayReplace);
    if (output.check() != OutputFile::Error::None)
        return refuse(exitCodeOf(output.error()), options.output,
                      output.error() == OutputFile::Error::Exists
                          ? output.reason() + QStringLiteral(", --force replaces it")
                          : output.reason());
    for (const QString &picture : options.pictures) {
        if (isSameFile(picture, options.output))
            return refuse(ExitCode::Usage, options.output,
                          QStringLiteral("is one of the pictures to merge"));
    }
    return ExitCode::Ok;
}

ExitCode Merge::findDevice()
{
    if (options.device.isEmpty())
        return ExitCode::Ok;
    device = opencl::findDevice(options.device);
    report.device = options.device;
    return device ? ExitCode::Ok
                  : refuse(ExitCode::NoDevice, options.device,
                           QStringLiteral("no such OpenCL device, see 'veskhdr devices'"));
}

ExitCode Merge::decode()
{
    bar.show(0.0, QStringLiteral("Reading"));
    const LibraryMute mute;
    const std::vector<DecodedPicture> decoded =
        loadPictures(options.pictures, options.pixelLimit, [this](int count) {
            bar.show(kDecoded * count / options.pictures.size(), QStringLiteral("Reading"));
        });
    ExitCode first = ExitCode::Ok;
    for (size_t i = 0; i < decoded.size(); ++i) {
        const DecodedPicture &picture = decoded[i];
        if (picture.error != DecodeError::None) {
            const ExitCode code =
                refuse(exitCodeOf(picture.error), options.pictures[int(i)], picture.reason);
            first = first == ExitCode::Ok ? code : first;
        }
        pictures.append(new QImage(picture.image));
    }
    return first;
}

ExitCode Merge::checkSizes()
{
    const QSize size = pictures.first()->size();
    ExitCode code = ExitCode::Ok;
    for (int i = 1; i < pictures.size(); ++i) {
        const QSize other = pictures[i]->size();
        if (other != size)
            code = refuse(ExitCode::BadData, options.pictures[i],
                          QStringLiteral("its size %1 x %2 is not that of %3 (%4 x %5)")
                              .arg(other.width())
                              .arg(other.height())
                              .arg(options.pictures.first())
                              .arg(size.width())
                              .arg(size.height()));
    }
    report.inputSize = size;
    report.area = QRect(QPoint(), size);
    return code;
}

ExitCode Merge::checkDevice()
{
    if (!device)
        return ExitCode::Ok;
    const QString reason = opencl::deviceProblem(device, report.inputSize, pictures.size());
    return reason.isEmpty() ? ExitCode::Ok : refuse(ExitCode::NoDevice, options.device, reason);
}

void Merge::begin(merge::Step step)
{
    if (step == merge::Step::Align) {
        bar.show(kDecoded, QStringLiteral("Aligning"));
        stepTimer.start();
        return;
    }
    if (options.align)
        report.milliseconds.align = stepTimer.elapsed();
    bar.show(kAligned, QStringLiteral("Merging"));
    stepTimer.start();
}

ExitCode Merge::mergePictures()
{
    merge::Options how;
    how.align = options.align;
    how.onDevice = device != nullptr;
    how.device = device;
    how.mayReusePixels = true;
    how.beforeStep = [this](merge::Step step) { begin(step); };
    merge::Outcome outcome = merge::mergePictures(pictures, how);
    report.milliseconds.merge = stepTimer.elapsed();
    if (!outcome.isDeviceComplete)
        return refuse(ExitCode::NoDevice, options.device, QStringLiteral("it failed to merge"));
    if (outcome.error != merge::Error::None)
        return refuse(ExitCode::NoMemory, options.output, QStringLiteral("not enough memory"));
    merged = std::move(outcome.picture);
    report.isAligned = options.align;
    if (options.align)
        report.largestFindableShift =
            mtb::largestFindableShift(mtb::pyramidLevels(report.inputSize));
    report.pairShifts = std::move(outcome.pairShifts);
    report.summedShifts = std::move(outcome.summedShifts);
    return ExitCode::Ok;
}

ExitCode Merge::crop()
{
    for (const QPoint shift : report.summedShifts)
        report.area &= QRect(shift, report.inputSize);
    if (report.area.isEmpty())
        return refuse(ExitCode::BadData, options.output,
                      QStringLiteral("nothing is left to crop to, the pictures do not overlap"));
    if (report.area.size() != merged->size())
        *merged = merged->copy(report.area);
    return ExitCode::Ok;
}

ExitCode Merge::encode()
{
    bar.show(kMerged, QStringLiteral("Writing"));
    WriteOptions writeOptions;
    writeOptions.exif = exif::read(options.pictures.first());
    writeOptions.quality = options.quality;
    writeOptions.mayReplace = options.mayReplace;
    writeOptions.progress = [this](double written) {
        bar.show(kMerged + (1 - kMerged) * written, QStringLiteral("Writing"));
    };
    writeOptions.temporaryName = interrupt::removeOnInterrupt;
    const WriteResult result = writePicture(*merged, options.output, options.format, writeOptions);
    if (result.error != OutputFile::Error::None)
        return refuse(exitCodeOf(result.error), options.output, result.reason);
    for (const QString &loss : result.leftOut)
        refuse(ExitCode::Ok, options.output, QStringLiteral("warning: ") + loss);
    return ExitCode::Ok;
}

void Merge::warnOfLimits()
{
    for (size_t i = 0; i < report.pairShifts.size(); ++i) {
        if (report.isAtLimit(i))
            console::complain(
                report.inputs[int(i) + 1],
                QStringLiteral("warning: shifted by %1 pixels or more, the largest shift that can "
                               "be found; it may not be aligned")
                    .arg(report.largestFindableShift));
    }
}

void Merge::tell()
{
    bar.clear();
    report.inputs = options.pictures;
    report.output = options.output;
    warnOfLimits();
    if (options.json)
        console::print(toJson(report));
    else if (options.verbose)
        console::print(toLines(report));
    else if (console::isTerminal())
        console::print(toSummary(report));
}

} // namespace

ExitCode runMerge(const QStringList &words)
{
    const ParsedMergeOptions parsed = parseMergeOptions(words);
    if (!parsed.problem.isEmpty()) {
        console::complain(parsed.file, parsed.problem);
        return ExitCode::Usage;
    }
    if (parsed.options.isQualityUnused)
        console::complain(parsed.options.output,
                          QStringLiteral("warning: --quality has no effect, only JPEG has one"));
    try {
        return Merge(parsed.options).run();
    } catch (const std::bad_alloc &) {
        console::complain(parsed.options.output, QStringLiteral("not enough memory"));
        return ExitCode::NoMemory;
    }
}

QString mergeHelp()
{
    return QStringLiteral(
        R"(Usage: veskhdr merge [options] PICTURE... -o OUT

Merges two or more pictures of one scene, taken at different exposures, into one
well-exposed picture. All must have the same size. They are read upright, whatever
their names end in, ordered by path, and aligned to the first one.

Options:
  -o, --output OUT  File to write: PNG, JPEG or TIFF by its suffix
                    (.png .jpg .jpeg .tif .tiff)
  --no-align        Take the pictures as they are, e.g. from a tripod
  --keep-order      Keep the order given; the first picture is the one that the
                    others are aligned to and whose metadata is kept
  --crop            Cut to the area that every picture covers after aligning
  --device NAME     Merge on that OpenCL device, see 'veskhdr devices', or on the
                    "processor", which is the default; the pixels are the same
  --quality N       JPEG quality, 1 to 100 (95); from 90 on at full colour resolution
  --max-megapixels N
                    Refuse larger pictures before taking memory for them (512)
  --force           Replace OUT if it exists, but never one of the pictures
  --json            Print what was done as one JSON object
  --verbose         Print what was done as plain lines: times and shifts
  --help            Show this text
  --                What follows are pictures, even if it begins with "-"

Exit codes:
   0  the picture is written
  64  wrong options or arguments, one picture only, unknown suffix of OUT
  65  a file is no picture, damaged, too large, or of another size than the first
  66  a picture is missing, is not a file, or must not be read
  69  the OpenCL device is not there, or cannot merge these pictures
  71  not enough memory
  73  OUT exists already, or cannot be made
  74  OUT or standard output could not be written to its end, e.g. the disk is full
Unless the exit code is 0, nothing is written and what stood in OUT's place stays; only
when standard output failed, as the message says, OUT is there.)");
}
