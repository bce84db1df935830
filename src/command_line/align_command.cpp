#include "align_command.h"

#include "AlignOptions.h"
#include "command_steps.h"
#include "console.h"
#include "interrupt_cleanup.h"
#include "metadata_reader.h"
#include "transform_report.h"

#include <QDir>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>

#include <new>

namespace {

using command_line::refuse;

// Where the bar stands after each step.
constexpr double kDecoded = 0.3;
constexpr double kRegistered = 0.5;

struct Times
{
    qint64 decode = 0;
    qint64 align = 0; ///< without the resampling
    qint64 write = 0; ///< with the resampling
    qint64 total = 0;
};

/// What JPEG files hold of a picture that is not opaque everywhere: black in place of nothing.
QImage onBlack(QImage picture)
{
    if (!picture.hasAlphaChannel())
        return picture;
    picture.convertTo(QImage::Format_ARGB32_Premultiplied);
    picture.reinterpretAsFormat(QImage::Format_RGB32);
    return picture;
}

/// One run from the files to the files. The steps stand in the order in which they run; each says
/// what is wrong, if anything is.
class Align
{
public:
    explicit Align(const AlignOptions &alignOptions)
        : options(alignOptions)
    {
    }

    ExitCode run();

private:
    ExitCode checkOutputs();
    ExitCode decode();
    ExitCode findPlaces();
    ExitCode makeFolder();
    ExitCode writeAll();
    ExitCode write(int index, QImage picture);
    ExitCode noMemory();
    void tell() const;
    QJsonObject toJson() const;
    QString toLines() const;
    QString toSummary() const;

    const AlignOptions &options;
    ProgressBar bar;
    QList<QImage> pictures;
    registration::Result placement;
    QRect area; ///< of the reference that the results show
    Times times;
};

ExitCode Align::run()
{
    using Step = ExitCode (Align::*)();
    const std::pair<Step, qint64 *> steps[] = {{&Align::checkOutputs, nullptr},
                                               {&Align::decode, &times.decode},
                                               {&Align::findPlaces, &times.align},
                                               {&Align::makeFolder, nullptr},
                                               {&Align::writeAll, &times.write}};
    QElapsedTimer timer;
    timer.start();
    for (const auto &[step, milliseconds] : steps) {
        const qint64 started = timer.elapsed();
        const ExitCode code = (this->*step)();
        if (code != ExitCode::Ok)
            return code;
        if (milliseconds)
            *milliseconds = timer.elapsed() - started;
    }
    times.total = timer.elapsed();
    bar.clear();
    tell();
    return ExitCode::Ok;
}

ExitCode Align::checkOutputs()
{
    if (!QDir(options.folder).exists())
        return ExitCode::Ok; // it will be made
    for (const QString &output : options.outputs) {
        const ExitCode code =
            command_line::checkTarget(bar, output, options.mayReplace, options.pictures);
        if (code != ExitCode::Ok)
            return code;
    }
    return ExitCode::Ok;
}

ExitCode Align::decode()
{
    ReadOptions how;
    how.pixelLimit = options.pixelLimit;
    how.depth = ReadOptions::Depth::AsStored;
    how.colours = ReadOptions::Colours::True;
    how.light = ReadOptions::Light::Shown;
    const ExitCode code = command_line::readPictures(
        bar, kDecoded, {options.pictures, options.pictures, how}, pictures);
    return code == ExitCode::Ok ? command_line::checkSizes(bar, options.pictures, pictures) : code;
}

ExitCode Align::findPlaces()
{
    exposure::PlacementOptions how;
    how.alignment = options.alignment;
    how.reference = options.reference;
    how.progress = [this](double done) {
        bar.show(kDecoded + (kRegistered - kDecoded) * done, QStringLiteral("Aligning"));
    };
    how.progress(0.0);
    placement = exposure::placed(pictures, how);
    if (placement.outcome != registration::Outcome::Done)
        return noMemory();
    const QSize size = pictures.first().size();
    area = options.crop ? exposure::areaOfAll(placement, size) : QRect(QPoint(), size);
    if (area.isEmpty())
        return refuse(bar, ExitCode::BadData, options.folder,
                      QStringLiteral("nothing is left to crop to, the pictures do not overlap"));
    return ExitCode::Ok;
}

ExitCode Align::makeFolder()
{
    if (QDir().mkpath(options.folder))
        return ExitCode::Ok;
    return refuse(bar, ExitCode::CannotCreate, options.folder,
                  QStringLiteral("the folder cannot be made"));
}

ExitCode Align::writeAll()
{
    for (int i = 0; i < int(pictures.size()); ++i) {
        const QImage shot = std::exchange(pictures[i], QImage());
        QImage aligned = exposure::laidOver(shot, placement.transforms[size_t(i)], area);
        if (aligned.isNull())
            return noMemory();
        const ExitCode code = write(i, std::move(aligned));
        if (code != ExitCode::Ok)
            return code;
    }
    return ExitCode::Ok;
}

ExitCode Align::write(int index, QImage picture)
{
    const QString &output = options.outputs[index];
    const PictureFormat format = picture::formatOfSuffix(output).value_or(PictureFormat::Tiff);
    if (format == PictureFormat::Jpeg)
        picture = onBlack(std::move(picture));
    WriteOptions how;
    how.metadata = metadata::read(options.pictures[index]);
    how.quality = options.quality;
    how.mayReplace = options.mayReplace;
    how.progress = [&](double written) {
        const double done = (index + written) / double(options.outputs.size());
        bar.show(kRegistered + (1 - kRegistered) * done, QStringLiteral("Writing"));
    };
    how.temporaryName = interrupt::removeOnInterrupt;
    const WriteResult result = picture::write(picture, output, format, how);
    if (result.error != OutputFile::Error::None)
        return refuse(bar, command_line::exitCodeOf(result.error), output, result.reason);
    for (const QString &loss : result.leftOut)
        refuse(bar, ExitCode::Ok, output, QStringLiteral("warning: ") + loss);
    return ExitCode::Ok;
}

ExitCode Align::noMemory()
{
    return refuse(bar, ExitCode::NoMemory, options.folder, QStringLiteral("not enough memory"));
}

void Align::tell() const
{
    command_line::warnOfUnaligned(options.pictures, placement.transforms);
    if (options.json)
        console::print(QString::fromUtf8(QJsonDocument(toJson()).toJson()).trimmed());
    else if (options.verbose)
        console::print(toLines());
    else if (console::isTerminal())
        console::print(toSummary());
}

QJsonObject Align::toJson() const
{
    const QJsonObject milliseconds{
        {QStringLiteral("decode"), times.decode},
        {QStringLiteral("align"), times.align},
        {QStringLiteral("write"), times.write},
        {QStringLiteral("total"), times.total},
    };
    return {
        {QStringLiteral("reference"), options.pictures[placement.reference]},
        {QStringLiteral("inputs"), QJsonArray::fromStringList(options.pictures)},
        {QStringLiteral("outputs"), QJsonArray::fromStringList(options.outputs)},
        {QStringLiteral("area"), command_line::areaToJson(area)},
        {QStringLiteral("transforms"),
         command_line::transformsToJson(options.pictures, placement.transforms)},
        {QStringLiteral("milliseconds"), milliseconds},
    };
}

QString Align::toLines() const
{
    return QStringLiteral("decode  %1 ms\nalign   %2 ms\nwrite   %3 ms\ntotal   %4 ms\n")
               .arg(times.decode, 6)
               .arg(times.align, 6)
               .arg(times.write, 6)
               .arg(times.total, 6) +
           command_line::transformLines(options.pictures, placement.transforms) +
           QStringLiteral("output  %1: %2 pictures, %3 x %4 pixels")
               .arg(options.folder)
               .arg(options.outputs.size())
               .arg(area.width())
               .arg(area.height());
}

QString Align::toSummary() const
{
    return QStringLiteral("%1: %2 pictures aligned to %3 in %4 s")
        .arg(options.folder)
        .arg(options.outputs.size())
        .arg(options.pictures[placement.reference])
        .arg(double(times.total) / 1000.0, 0, 'f', 1);
}

} // namespace

ExitCode command_line::runAlign(const QStringList &words)
{
    const ParsedAlignOptions parsed = parseAlignOptions(words);
    if (!parsed.problem.isEmpty()) {
        console::complain(parsed.file, parsed.problem);
        return ExitCode::Usage;
    }
    try {
        return Align(parsed.options).run();
    } catch (const std::bad_alloc &) {
        console::complain(parsed.options.folder, QStringLiteral("not enough memory"));
        return ExitCode::NoMemory;
    }
}

QString command_line::alignHelp()
{
    return QStringLiteral(
        R"(Usage: veskhdr align [options] PICTURE... -o DIR

Lays two or more hand-held shots of one scene over one of them and writes each as a
file of its own, for programs that fuse elsewhere. All must have the same size. They
are read upright; 16 bits per channel stay 16 bits. A shot that lies right already is
written as it is, pixel by pixel; the others are resampled once.

Options:
  -o, --output DIR  Folder for the results, made when missing. They have the names of
                    the pictures
  --align HOW       "perspective", which is the default: the least motion that explains
                    each shot (nothing, whole pixels, a turn and a shift, a tilt);
                    "shift" by whole pixels, as the "Merge to HDR" tool finds them, onto
                    the first picture
  --reference PICTURE
                    Align to this one; otherwise to the best exposed one (perspective)
                    or to the first (shift)
  --crop            Cut to the area that every shot covers. Otherwise what a shot does
                    not cover is transparent in PNG and TIFF files, black in JPEG files
  --format NAME     "png", "jpeg" or "tiff"; otherwise that of each picture's name, and
                    TIFF where that is another one, as for camera raw files
  --keep-order      Keep the order given; the first picture is the one that "shift"
                    aligns to
  --quality N       JPEG quality, 1 to 100 (95)
  --max-megapixels N
                    Refuse larger pictures before taking memory for them (512)
  --force           Replace files of DIR, but never one of the pictures
  --json            Print what was done as one JSON object
  --verbose         Print what was done as plain lines: times and motions
  --help            Show this text
  --                What follows are pictures, even if it begins with "-"

A shot for which no motion can be trusted is written as it is, with a warning.

Exit codes:
   0  all pictures are written
  64  wrong options or arguments, one picture only, two pictures of one name, a result
      would replace one of the pictures
  65  a file is no picture, damaged, too large, or of another size than the first
  66  a picture is missing, is not a file, or must not be read
  71  not enough memory
  73  a result exists already, or DIR or a result cannot be made
  74  a result or standard output could not be written to its end
Every file in DIR is complete, whatever the exit code; those before the one that failed
stay.)");
}
