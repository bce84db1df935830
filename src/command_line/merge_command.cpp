#include "merge_command.h"

#include "ColourTransform.h"
#include "MergeOptions.h"
#include "MergeReport.h"
#include "MetadataOptions.h"
#include "ProgressBar.h"
#include "UnnamedFile.h"
#include "bright_merge.h"
#include "command_steps.h"
#include "console.h"
#include "file_names.h"
#include "interrupt_cleanup.h"
#include "metadata_reader.h"
#include "mtb_shifts.h"
#include "opencl_devices.h"
#include "part_masks.h"
#include "set_merge.h"
#include "shot_exposures.h"
#include "transform_report.h"

#include <QColorSpace>
#include <QElapsedTimer>
#include <QFileInfo>

#include <new>
#include <utility>

#include <unistd.h>

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
    Merge(const Merge &) = delete;
    Merge &operator=(const Merge &) = delete;

    ExitCode run();

private:
    ExitCode readStandardInput();
    ExitCode checkOutput();
    ExitCode checkTarget(const QString &path);
    ExitCode checkMetadataSource();
    ExitCode findDevice();
    ExitCode decode();
    ExitCode checkSizes();
    ExitCode checkDevice();
    ExitCode mergeShots();
    exposure::SetOptions setOptions();
    QStringList filesToKeep() const;
    void take(exposure::SetOutcome &&outcome);
    void takeLight(const exposure::Report &done);
    ExitCode mergeFailure(const exposure::SetOutcome &outcome);
    void show(exposure::Step step, double done);
    ExitCode bringToOutputSpace();
    ExitCode makeBright();
    ExitCode writeToStandardOutput(const WriteOptions &how);
    void tellLosses(const WriteResult &result);
    ReadOptions readOptions() const;
    int bitsToWrite() const;
    ExitCode writeGhostMask();
    Metadata keptMetadata() const;
    ExitCode encode();
    ExitCode timed(ExitCode (Merge::*step)(), qint64 &milliseconds);
    ExitCode refuse(ExitCode code, const QString &file, const QString &reason);
    void warnOfLimits();
    bool isAligning() const { return options.fusion.alignment != exposure::Alignment::None; }
    void tell();

    const MergeOptions &options;
    QStringList files; ///< where the pictures are read; their names but for standard input
    UnnamedFile standardInput;
    bool isFirstDeep = false;      ///< the first picture has 16 bits per channel
    QList<QImage> pictures;        ///< in merge order
    cl_device_id device = nullptr; ///< null: the processor merges
    QImage merged;
    brackets::ShotExposures exposures; ///< of the radiance
    double whiteLuminance = 0.0;       ///< of the radiance, see WriteOptions
    display::BrightSource bright;      ///< of a bright picture; its base comes last
    GainMap gainMap;                   ///< of a bright picture in a JPEG file
    QImage ghosts;                     ///< what moved; null when nothing did
    MergeReport report;
    ProgressBar bar;
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
        code = readStandardInput();
    if (code == ExitCode::Ok)
        code = timed(&Merge::decode, times.decode);
    if (code == ExitCode::Ok)
        code = checkSizes();
    if (code == ExitCode::Ok)
        code = checkDevice();
    if (code == ExitCode::Ok)
        code = mergeShots();
    if (code == ExitCode::Ok)
        code = bringToOutputSpace();
    if (code == ExitCode::Ok && options.isBright)
        code = makeBright();
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
    if (path == options.output && options.isToStandardOutput())
        return console::isTerminal()
                   ? refuse(ExitCode::Usage, {},
                            QStringLiteral("standard output is a terminal, not for pictures"))
                   : ExitCode::Ok;
    return command_line::checkTarget(bar, path, options.mayReplace, filesToKeep());
}

QStringList Merge::filesToKeep() const
{
    QStringList kept = options.pictures;
    for (const TakeFile &take : options.takes)
        kept += take.mask;
    return kept;
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

/// What comes as "-" becomes a file like the others.
ExitCode Merge::readStandardInput()
{
    constexpr qint64 kMostPixelBytes = 16;
    constexpr qint64 kMostMetadataBytes = 64 << 20;
    files = options.pictures;
    const auto place = files.indexOf(QStringLiteral("-"));
    if (place < 0)
        return ExitCode::Ok;
    const qint64 most = options.pixelLimit * kMostPixelBytes + kMostMetadataBytes;
    if (!standardInput.open() || !standardInput.fillFrom(STDIN_FILENO, most))
        return refuse(ExitCode::NoInput, QStringLiteral("-"), standardInput.reason());
    files[place] = standardInput.path();
    return ExitCode::Ok;
}

ReadOptions Merge::readOptions() const
{
    ReadOptions how = exposure::readOptionsFor(options.method, files);
    how.pixelLimit = options.pixelLimit;
    how.rawSpace = options.rawSpace;
    return how;
}

ExitCode Merge::decode()
{
    return command_line::readPictures(bar, kDecoded, {files, options.pictures, readOptions()},
                                      pictures);
}

ExitCode Merge::checkSizes()
{
    report.inputSize = pictures.first().size();
    return command_line::checkSizes(bar, options.pictures, pictures);
}

ExitCode Merge::checkDevice()
{
    if (!device)
        return ExitCode::Ok;
    const QString reason = opencl::deviceProblem(device, report.inputSize, pictures.size());
    return reason.isEmpty() ? ExitCode::Ok : refuse(ExitCode::NoDevice, options.device, reason);
}

void Merge::show(exposure::Step step, double done)
{
    const bool isMean = options.method == MergeMethod::Mean;
    switch (step) {
    case exposure::Step::Register:
    case exposure::Step::Resample:
        return bar.show(kDecoded, QStringLiteral("Aligning"));
    case exposure::Step::FindGhosts:
        return bar.show(kAligned, QStringLiteral("Looking for what moved"));
    case exposure::Step::Fuse:
        return bar.show(kAligned + (kMerged - kAligned) * done,
                        isMean ? QStringLiteral("Merging") : QStringLiteral("Fusing"));
    }
}

exposure::SetOptions Merge::setOptions()
{
    exposure::SetOptions how = options.fusion;
    how.isDeepWanted = options.depth == 16;
    how.device = device;
    if (options.method == MergeMethod::Radiance || options.isBright) {
        exposures = brackets::shotExposures(files);
        if (options.isBright)
            how.product = exposure::Product::Both;
        how.exposures = exposures.relative;
    }
    return how;
}

ExitCode Merge::mergeShots()
{
    isFirstDeep = pictures.first().depth() == 64;
    exposure::Control control;
    control.progress = [this](exposure::Step step, double done) { show(step, done); };
    exposure::SetOptions how = setOptions();
    const ExitCode code = command_line::readParts(bar, options, report.inputSize, how);
    if (code != ExitCode::Ok)
        return code;
    exposure::SetOutcome outcome =
        exposure::mergeSet(options.method, std::exchange(pictures, {}), how, control);
    if (outcome.error != exposure::Error::None || !outcome.isDeviceComplete)
        return mergeFailure(outcome);
    take(std::move(outcome));
    return ExitCode::Ok;
}

void Merge::take(exposure::SetOutcome &&outcome)
{
    const exposure::Report &done = outcome.report;
    merged = std::move(outcome.picture);
    ghosts = std::move(outcome.ghosts);
    report.isAligned = isAligning();
    report.area = done.area;
    report.milliseconds.align = done.registerMs;
    report.milliseconds.ghosts = done.ghostsMs;
    report.milliseconds.merge = done.fuseMs;
    report.colours = std::move(outcome.colours);
    report.pairShifts = std::move(outcome.pairShifts);
    report.summedShifts = std::move(outcome.summedShifts);
    if (!report.pairShifts.empty())
        report.largestFindableShift =
            mtb::largestFindableShift(mtb::pyramidLevels(report.inputSize));
    if (options.method == MergeMethod::Radiance || options.isBright)
        takeLight(done);
    bright.light = std::move(outcome.light);
    bright.bounds = std::move(outcome.bounds);
    if (options.method != MergeMethod::Mean)
        report.fusion = std::move(outcome.report);
}

/// What one would not guess of the light is said.
void Merge::takeLight(const exposure::Report &done)
{
    if (exposures.hasScale)
        whiteLuminance = brackets::luminanceOfWhite(exposures.relative[size_t(done.reference)]);
    if (!done.areExposuresKnown)
        refuse(ExitCode::Ok, options.output,
               QStringLiteral("warning: not all pictures tell their exposures, they are taken "
                              "from the pixels"));
    if (!done.isCurveRecovered && !isFirstDeep)
        refuse(ExitCode::Ok, options.output,
               QStringLiteral("warning: the set does not tell the camera's tone curve, that of "
                              "the colour profile is taken"));
}

ExitCode Merge::mergeFailure(const exposure::SetOutcome &outcome)
{
    if (!outcome.isDeviceComplete)
        return refuse(ExitCode::NoDevice, options.device, QStringLiteral("it failed to merge"));
    if (outcome.error == exposure::Error::NothingCovered)
        return refuse(ExitCode::BadData, options.output,
                      QStringLiteral("nothing is left to crop to, the pictures do not overlap"));
    return refuse(ExitCode::NoMemory, options.output, QStringLiteral("not enough memory"));
}

/// Black where nothing moved.
ExitCode Merge::writeGhostMask()
{
    if (ghosts.isNull()) {
        ghosts = QImage(merged.size(), QImage::Format_Grayscale8);
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

Metadata Merge::keptMetadata() const
{
    if (!options.keepsMetadata)
        return {};
    const QString &reference = files[report.fusion.reference];
    return metadata::read(options.metadataSource.isEmpty() ? reference : options.metadataSource);
}

ExitCode Merge::bringToOutputSpace()
{
    if (!options.outputSpace)
        return ExitCode::Ok;
    const auto outcome = ColourTransform::bring(merged, colour_profile::of(*options.outputSpace));
    return outcome != ColourTransform::Outcome::Failed
               ? ExitCode::Ok
               : refuse(ExitCode::NoMemory, options.output, QStringLiteral("not enough memory"));
}

ExitCode Merge::makeBright()
{
    bar.show(kMerged, QStringLiteral("Comparing with the light"));
    bright.base = merged;
    bright.peak = options.peak;
    if (!display::makeBright(std::move(bright), options.format, merged, gainMap))
        return refuse(ExitCode::NoMemory, options.output, QStringLiteral("not enough memory"));
    report.headroom = gainMap.terms.alternateHeadroom;
    return ExitCode::Ok;
}

int Merge::bitsToWrite() const
{
    if (options.method == MergeMethod::Radiance)
        return options.depth != 0                         ? options.depth
               : options.format == PictureFormat::OpenExr ? 16
                                                          : 32;
    if (picture::isForBrightScreens(options.format))
        return display::kBrightBits;
    const bool isDeep = options.depth == 0 ? isFirstDeep : options.depth == 16;
    return isDeep && options.format != PictureFormat::Jpeg ? 16 : 8;
}

/// By way of a file, as not all formats can be written from front to back.
ExitCode Merge::writeToStandardOutput(const WriteOptions &how)
{
    UnnamedFile file;
    if (!file.open())
        return refuse(ExitCode::WriteFailed, options.output, file.reason());
    const WriteResult result = picture::write(merged, file.device(), options.format, how);
    if (result.error != OutputFile::Error::None)
        return refuse(command_line::exitCodeOf(result.error), options.output, result.reason);
    tellLosses(result);
    return file.copyTo(STDOUT_FILENO)
               ? ExitCode::Ok
               : refuse(ExitCode::WriteFailed, options.output, file.reason());
}

void Merge::tellLosses(const WriteResult &result)
{
    for (const QString &loss : result.leftOut)
        refuse(ExitCode::Ok, options.output, QStringLiteral("warning: ") + loss);
}

ExitCode Merge::encode()
{
    bar.show(kMerged, QStringLiteral("Writing"));
    WriteOptions writeOptions;
    writeOptions.metadata = keptMetadata();
    writeOptions.mark = command_line::markOf(options);
    writeOptions.gainMap = gainMap;
    writeOptions.quality = options.quality;
    writeOptions.whiteLuminance = whiteLuminance;
    writeOptions.bitsPerSample = bitsToWrite();
    writeOptions.tiffCompression = options.tiffCompression;
    writeOptions.effort = options.effort;
    writeOptions.mayReplace = options.mayReplace;
    writeOptions.progress = [this](double written) {
        bar.show(kMerged + (1 - kMerged) * written, QStringLiteral("Writing"));
    };
    writeOptions.temporaryName = interrupt::removeOnInterrupt;
    report.bitsPerChannel = writeOptions.bitsPerSample;
    report.outputSpace = picture::isForBrightScreens(options.format)
                             ? QStringLiteral("Rec. 2020 PQ")
                             : colour_profile::nameOf(merged.colorSpace().iccProfile());
    if (options.isToStandardOutput())
        return writeToStandardOutput(writeOptions);
    const WriteResult result = picture::write(merged, options.output, options.format, writeOptions);
    if (result.error != OutputFile::Error::None)
        return refuse(command_line::exitCodeOf(result.error), options.output, result.reason);
    tellLosses(result);
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
    report.takes = options.takes;
    report.strokes = options.strokes;
    warnOfLimits();
    command_line::warnOfUnaligned(report.inputs, report.fusion.transforms);
    if (options.json)
        console::print(command_line::toJson(report));
    else if (options.verbose)
        console::print(command_line::toLines(report));
    else if (console::isTerminal() && !options.isToStandardOutput())
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
        console::complain(
            parsed.options.output,
            QStringLiteral(
                "warning: --quality has no effect, only JPEG, AVIF and JPEG XL have one"));
    try {
        return Merge(parsed.options).run();
    } catch (const std::bad_alloc &) {
        console::complain(parsed.options.output, QStringLiteral("not enough memory"));
        return ExitCode::NoMemory;
    }
}
