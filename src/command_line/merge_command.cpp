#include "merge_command.h"

#include "ColourTransform.h"
#include "MergeOptions.h"
#include "MergeReport.h"
#include "MetadataOptions.h"
#include "ProgressBar.h"
#include "UnnamedFile.h"
#include "command_steps.h"
#include "console.h"
#include "file_names.h"
#include "interrupt_cleanup.h"
#include "merge_pictures.h"
#include "metadata_reader.h"
#include "mtb_shifts.h"
#include "opencl_devices.h"
#include "picture_set.h"
#include "shot_exposures.h"
#include "transform_report.h"

#include <QColorSpace>
#include <QElapsedTimer>
#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <new>

#include <unistd.h>

namespace {

// Where the bar stands after each step.
constexpr double kDecoded = 0.3;
constexpr double kAligned = 0.6;
constexpr double kMerged = 0.7;

/// The fusion has the depth of the deepest shot.
void deepen(QList<QImage> &shots)
{
    const auto isDeep = [](const QImage &shot) { return shot.depth() == 64; };
    if (std::none_of(shots.begin(), shots.end(), isDeep))
        shots.first() = std::move(shots.first()).convertToFormat(QImage::Format_RGBX64);
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
    ExitCode readStandardInput();
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
    exposure::Options jobOptions();
    void takeLight(const exposure::Outcome &outcome);
    ExitCode fusionFailure(exposure::Error error);
    void showFusion(exposure::Step step, double done);
    ExitCode bringToOutputSpace();
    ExitCode writeToStandardOutput(const WriteOptions &how);
    void tellLosses(const WriteResult &result);
    ReadOptions readOptions() const;
    int bitsToWrite() const;
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
    QStringList files; ///< where the pictures are read; their names but for standard input
    UnnamedFile standardInput;
    bool isFirstDeep = false;      ///< the first picture has 16 bits per channel
    QList<QImage *> pictures;      ///< in merge order; owned
    cl_device_id device = nullptr; ///< null: the processor merges
    std::unique_ptr<QImage> merged;
    command_line::ShotExposures exposures; ///< of the radiance
    double whiteLuminance = 0.0;           ///< of the radiance, see WriteOptions
    QImage ghosts;                         ///< what moved; null when nothing did
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
        code = readStandardInput();
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
        code = bringToOutputSpace();
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

/// The mean reads as the tool does, to the bit.
ReadOptions Merge::readOptions() const
{
    ReadOptions how;
    how.pixelLimit = options.pixelLimit;
    if (options.method == MergeMethod::Mean)
        return how;
    how.depth = ReadOptions::Depth::AsStored;
    how.colours = ReadOptions::Colours::True;
    how.rawSpace = options.rawSpace;
    return how;
}

ExitCode Merge::decode()
{
    QList<QImage> decoded;
    const ExitCode code = command_line::readPictures(
        bar, kDecoded, {files, options.pictures, readOptions()}, decoded);
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
    isFirstDeep = shots.first().depth() == 64;
    report.colours = picture_set::bringToFirst(shots);
    if (!report.colours.isMemoryShort && options.depth == 16)
        deepen(shots);
    if (report.colours.isMemoryShort || shots.first().isNull())
        return refuse(ExitCode::NoMemory, options.output, QStringLiteral("not enough memory"));
    exposure::Control control;
    control.progress = [this](exposure::Step step, double done) { showFusion(step, done); };
    exposure::Outcome outcome = exposure::merge(std::move(shots), jobOptions(), control);
    if (outcome.error != exposure::Error::None)
        return fusionFailure(outcome.error);
    merged = std::make_unique<QImage>(std::move(outcome.picture));
    ghosts = std::move(outcome.ghosts);
    if (options.method == MergeMethod::Radiance)
        takeLight(outcome);
    report.isAligned = options.fusion.alignment != exposure::Alignment::None;
    report.area = outcome.report.area;
    report.milliseconds.align = outcome.report.registerMs;
    report.milliseconds.ghosts = outcome.report.ghostsMs;
    report.milliseconds.merge = outcome.report.fuseMs;
    report.fusion = std::move(outcome.report);
    return ExitCode::Ok;
}

exposure::Options Merge::jobOptions()
{
    exposure::Options how = options.fusion;
    if (options.method == MergeMethod::Radiance) {
        exposures = command_line::shotExposures(files);
        how.product = exposure::Product::Light;
        how.exposures = exposures.relative;
    }
    return how;
}

/// What one would not guess of the light is said.
void Merge::takeLight(const exposure::Outcome &outcome)
{
    const exposure::Report &done = outcome.report;
    if (exposures.hasScale)
        whiteLuminance = command_line::luminanceOfWhite(exposures.relative[size_t(done.reference)]);
    if (!done.areExposuresKnown)
        refuse(ExitCode::Ok, options.output,
               QStringLiteral("warning: not all pictures tell their exposures, they are taken "
                              "from the pixels"));
    if (!done.isCurveRecovered && !isFirstDeep)
        refuse(ExitCode::Ok, options.output,
               QStringLiteral("warning: the set does not tell the camera's tone curve, that of "
                              "the colour profile is taken"));
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
    const QString &reference = files[report.fusion.reference];
    return metadata::read(options.metadataSource.isEmpty() ? reference : options.metadataSource);
}

ExitCode Merge::bringToOutputSpace()
{
    if (!options.outputSpace)
        return ExitCode::Ok;
    const auto outcome = ColourTransform::bring(*merged, colour_profile::of(*options.outputSpace));
    return outcome != ColourTransform::Outcome::Failed
               ? ExitCode::Ok
               : refuse(ExitCode::NoMemory, options.output, QStringLiteral("not enough memory"));
}

int Merge::bitsToWrite() const
{
    if (options.method == MergeMethod::Radiance)
        return options.depth != 0                         ? options.depth
               : options.format == PictureFormat::OpenExr ? 16
                                                          : 32;
    const bool isDeep = options.depth == 0 ? isFirstDeep : options.depth == 16;
    return isDeep && options.format != PictureFormat::Jpeg ? 16 : 8;
}

/// By way of a file, as not all formats can be written from front to back.
ExitCode Merge::writeToStandardOutput(const WriteOptions &how)
{
    UnnamedFile file;
    if (!file.open())
        return refuse(ExitCode::WriteFailed, options.output, file.reason());
    const WriteResult result = picture::write(*merged, file.device(), options.format, how);
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
    report.outputSpace = colour_profile::nameOf(merged->colorSpace().iccProfile());
    if (options.isToStandardOutput())
        return writeToStandardOutput(writeOptions);
    const WriteResult result =
        picture::write(*merged, options.output, options.format, writeOptions);
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
        console::complain(parsed.options.output,
                          QStringLiteral("warning: --quality has no effect, only JPEG has one"));
    try {
        return Merge(parsed.options).run();
    } catch (const std::bad_alloc &) {
        console::complain(parsed.options.output, QStringLiteral("not enough memory"));
        return ExitCode::NoMemory;
    }
}
