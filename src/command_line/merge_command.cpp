#include "merge_command.h"

#include "MergeOptions.h"
#include "MergeReport.h"
#include "MetadataOptions.h"
#include "ProgressBar.h"
#include "command_steps.h"
#include "console.h"
#include "file_names.h"
#include "interrupt_cleanup.h"
#include "merge_pictures.h"
#include "metadata_reader.h"
#include "mtb_shifts.h"
#include "opencl_devices.h"
#include "transform_report.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <memory>
#include <new>

namespace {

// Where the bar stands after each step.
constexpr double kDecoded = 0.3;
constexpr double kAligned = 0.6;
constexpr double kMerged = 0.7;

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
    ExitCode checkTarget(const QString &path);
    ExitCode checkMetadataSource();
    ExitCode findDevice();
    ExitCode decode();
    ExitCode checkSizes();
    ExitCode checkDevice();
    void begin(merge::Step step);
    ExitCode mergePictures();
    ExitCode fusePictures();
    ExitCode fusionFailure(exposure::Error error);
    void showFusion(exposure::Step step, double done);
    ExitCode writeGhostMask();
    ExitCode crop();
    Metadata keptMetadata() const;
    ExitCode encode();
    ExitCode timed(ExitCode (Merge::*step)(), qint64 &milliseconds);
    ExitCode refuse(ExitCode code, const QString &file, const QString &reason);
    void warnOfLimits();
    bool isAligning() const { return options.fusion.alignment != exposure::Alignment::None; }
    void tell();

    const MergeOptions &options;
    QList<QImage *> pictures;      ///< in merge order; owned
    cl_device_id device = nullptr; ///< null: the processor merges
    std::unique_ptr<QImage> merged;
    QImage ghosts; ///< what moved; null when nothing did
    MergeReport report;
    ProgressBar bar;
    QElapsedTimer stepTimer;
};

ExitCode Merge::refuse(ExitCode code, const QString &file, const QString &reason)
{
    return command_line::refuse(bar, code, file, reason);
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
        code = checkMetadataSource();
    if (code == ExitCode::Ok)
        code = findDevice();
    if (code == ExitCode::Ok)
        code = timed(&Merge::decode, times.decode);
    if (code == ExitCode::Ok)
        code = checkSizes();
    if (code == ExitCode::Ok)
        code = checkDevice();
    const bool isMean = options.method == MergeMethod::Mean;
    if (code == ExitCode::Ok)
        code = isMean ? mergePictures() : fusePictures();
    if (code == ExitCode::Ok && isMean && options.crop)
        code = crop();
    if (code == ExitCode::Ok)
        code = timed(&Merge::encode, times.encode);
    if (code == ExitCode::Ok && !options.ghostMask.isEmpty())
        code = writeGhostMask();
    times.total = timer.elapsed();
    if (code == ExitCode::Ok)
        tell();
    return code;
}

ExitCode Merge::checkOutput()
{
    const ExitCode code = checkTarget(options.output);
    if (code != ExitCode::Ok || options.ghostMask.isEmpty())
        return code;
    if (options.ghostMask == options.output ||
        command_line::isSameFile(options.ghostMask, options.output))
        return refuse(ExitCode::Usage, options.ghostMask,
                      QStringLiteral("is the merged picture, too"));
    return checkTarget(options.ghostMask);
}

ExitCode Merge::checkTarget(const QString &path)
{
    return command_line::checkTarget(bar, path, options.mayReplace, options.pictures);
}

/// Before the work, not after it.
ExitCode Merge::checkMetadataSource()
{
    const QString &source = options.metadataSource;
    if (source.isEmpty())
        return ExitCode::Ok;
    const file_names::ReadablePath readable(source);
    const QFileInfo file(readable.path());
    if (!file.isFile() || !file.isReadable())
        return refuse(ExitCode::NoInput, source, QStringLiteral("is no file that can be read"));
    if (metadata::read(source).isEmpty())
        return refuse(ExitCode::Ok, source, QStringLiteral("warning: it has no metadata to keep"));
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
    QList<QImage> decoded;
    const ExitCode code = command_line::readPictures(
        bar, kDecoded, {options.pictures, options.pixelLimit, ReadOptions::Depth::Eight}, decoded);
    for (QImage &picture : decoded)
        pictures.append(new QImage(std::move(picture)));
    return code;
}

ExitCode Merge::checkSizes()
{
    QList<QImage> decoded;
    for (const QImage *picture : std::as_const(pictures))
        decoded.append(*picture);
    report.inputSize = decoded.first().size();
    report.area = QRect(QPoint(), report.inputSize);
    return command_line::checkSizes(bar, options.pictures, decoded);
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
    if (isAligning())
        report.milliseconds.align = stepTimer.elapsed();
    bar.show(kAligned, QStringLiteral("Merging"));
    stepTimer.start();
}

ExitCode Merge::mergePictures()
{
    merge::Options how;
    how.align = isAligning();
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
    report.isAligned = isAligning();
    if (report.isAligned)
        report.largestFindableShift =
            mtb::largestFindableShift(mtb::pyramidLevels(report.inputSize));
    report.pairShifts = std::move(outcome.pairShifts);
    report.summedShifts = std::move(outcome.summedShifts);
    return ExitCode::Ok;
}

void Merge::showFusion(exposure::Step step, double done)
{
    switch (step) {
    case exposure::Step::Register:
    case exposure::Step::Resample:
        return bar.show(kDecoded, QStringLiteral("Aligning"));
    case exposure::Step::FindGhosts:
        return bar.show(kAligned, QStringLiteral("Looking for what moved"));
    case exposure::Step::Fuse:
        return bar.show(kAligned + (kMerged - kAligned) * done, QStringLiteral("Fusing"));
    }
}

ExitCode Merge::fusePictures()
{
    QList<QImage> shots;
    for (QImage *picture : std::as_const(pictures))
        shots += std::move(*picture);
    qDeleteAll(pictures);
    pictures.clear();
    exposure::Control control;
    control.progress = [this](exposure::Step step, double done) { showFusion(step, done); };
    exposure::Outcome outcome = exposure::merge(std::move(shots), options.fusion, control);
    if (outcome.error != exposure::Error::None)
        return fusionFailure(outcome.error);
    merged = std::make_unique<QImage>(std::move(outcome.picture));
    ghosts = std::move(outcome.ghosts);
    report.isAligned = options.fusion.alignment != exposure::Alignment::None;
    report.area = outcome.report.area;
    report.milliseconds.align = outcome.report.registerMs;
    report.milliseconds.ghosts = outcome.report.ghostsMs;
    report.milliseconds.merge = outcome.report.fuseMs;
    report.fusion = std::move(outcome.report);
    return ExitCode::Ok;
}

ExitCode Merge::fusionFailure(exposure::Error error)
{
    if (error == exposure::Error::NothingCovered)
        return refuse(ExitCode::BadData, options.output,
                      QStringLiteral("nothing is left to crop to, the pictures do not overlap"));
    return refuse(ExitCode::NoMemory, options.output, QStringLiteral("not enough memory"));
}

/// Black where nothing moved.
ExitCode Merge::writeGhostMask()
{
    if (ghosts.isNull()) {
        ghosts = QImage(merged->size(), QImage::Format_Grayscale8);
        ghosts.fill(0);
    }
    WriteOptions how;
    how.quality = options.quality;
    how.mayReplace = options.mayReplace;
    how.temporaryName = interrupt::removeOnInterrupt;
    const PictureFormat format =
        picture::formatOfSuffix(options.ghostMask).value_or(PictureFormat::Png);
    const WriteResult result = picture::write(ghosts, options.ghostMask, format, how);
    return result.error == OutputFile::Error::None
               ? ExitCode::Ok
               : refuse(command_line::exitCodeOf(result.error), options.ghostMask, result.reason);
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

Metadata Merge::keptMetadata() const
{
    if (!options.keepsMetadata)
        return {};
    const QString &reference = options.pictures[report.fusion.reference];
    return metadata::read(options.metadataSource.isEmpty() ? reference : options.metadataSource);
}

ExitCode Merge::encode()
{
    bar.show(kMerged, QStringLiteral("Writing"));
    WriteOptions writeOptions;
    writeOptions.metadata = keptMetadata();
    writeOptions.mark = command_line::markOf(options);
    writeOptions.quality = options.quality;
    writeOptions.mayReplace = options.mayReplace;
    writeOptions.progress = [this](double written) {
        bar.show(kMerged + (1 - kMerged) * written, QStringLiteral("Writing"));
    };
    writeOptions.temporaryName = interrupt::removeOnInterrupt;
    const WriteResult result =
        picture::write(*merged, options.output, options.format, writeOptions);
    if (result.error != OutputFile::Error::None)
        return refuse(command_line::exitCodeOf(result.error), options.output, result.reason);
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
    report.method = options.method;
    report.ghostMask = options.ghostMask;
    warnOfLimits();
    command_line::warnOfUnaligned(report.inputs, report.fusion.transforms);
    if (options.json)
        console::print(command_line::toJson(report));
    else if (options.verbose)
        console::print(command_line::toLines(report));
    else if (console::isTerminal())
        console::print(command_line::toSummary(report));
}

} // namespace

ExitCode command_line::runMerge(const QStringList &words)
{
    const ParsedMergeOptions parsed = command_line::parseMergeOptions(words);
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

QString command_line::mergeHelp()
{
    return QStringLiteral(
        R"(Usage: veskhdr merge [options] PICTURE... -o OUT

Merges two or more pictures of one scene, taken at different exposures, into one
well-exposed picture. All must have the same size. They are read upright, whatever
their names end in, ordered by path, aligned, and fused: each part of the picture
comes mostly from the shots that show it best, and what moved from one shot alone.

Options:
  -o, --output OUT  File to write: PNG, JPEG or TIFF by its suffix
                    (.png .jpg .jpeg .tif .tiff)
  --method HOW      "fusion", which is the default, or "mean": the weighted mean of
                    the "Merge to HDR" tool, to the bit
  --align HOW       "perspective" for hand-held shots, which is fusion's default;
                    "shift" by whole pixels, which is the mean's, onto the first
                    picture; "none" for shots from a tripod
  --no-align        Short for --align none
  --reference PICTURE
                    Align to this one, and keep its metadata; otherwise to the one
                    best exposed (fusion) or to the first (mean)
  --ghosts HOW      What moved comes from one shot: "auto", which is the default,
                    chooses it for each thing; a PICTURE is that shot; "off" blends
  --ghost-mask FILE Write what moved, white on black
  --exposure N      Brighten the result by so many stops, -4 to 4 (0)
  --contrast N      Harden (up to 1) or soften (down to -1) it (0)
  --saturation N    Colours from none (0) to vivid (3) (1)
  --exposure-weight N, --contrast-weight N, --saturation-weight N
                    How much a middle exposure (1), local contrast (1) and vivid
                    colours (0) count in the fusion, 0 to 4
  --metadata-from PICTURE
                    Keep this picture's metadata instead of the reference's
  --no-metadata     Keep none; only the result's own mark is written, without the
                    names of the pictures
  --keep-order      Keep the order given; the first picture is the one that
                    "shift" aligns to
  --crop            Cut to the area that every picture covers after aligning
  --device NAME     Merge on that OpenCL device, see 'veskhdr devices', or on the
                    "processor"; the pixels are the same. The method is the mean then
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
