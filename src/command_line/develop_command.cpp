#include "develop_command.h"

#include "DevelopOptions.h"
#include "command_steps.h"
#include "console.h"
#include "develop.h"
#include "interrupt_cleanup.h"
#include "metadata_reader.h"

#include <QFileInfo>

#include <new>

namespace {

using command_line::refuse;

// Where the bar stands after each step.
constexpr double kRead = 0.3;
constexpr double kDeveloped = 0.8;

ExitCode readLight(ProgressBar &bar, const DevelopOptions &options, QImage &light)
{
    ReadOptions how;
    how.pixelLimit = options.pixelLimit;
    how.depth = ReadOptions::Depth::AsStored;
    how.light = ReadOptions::Light::Floats;
    QList<QImage> pictures;
    const QStringList file(options.light);
    const ExitCode code = command_line::readPictures(bar, kRead, {file, file, how}, pictures);
    if (code != ExitCode::Ok)
        return code;
    const QImage::Format format = pictures.constFirst().format();
    if (format != QImage::Format_RGBX32FPx4 && format != QImage::Format_RGBA32FPx4 &&
        format != QImage::Format_RGBA32FPx4_Premultiplied)
        return refuse(bar, ExitCode::BadData, options.light,
                      QStringLiteral("holds a picture for a screen already, not light"));
    light = std::move(pictures.first()).convertToFormat(QImage::Format_RGBX32FPx4);
    return light.isNull()
               ? refuse(bar, ExitCode::NoMemory, options.light, QStringLiteral("not enough memory"))
               : ExitCode::Ok;
}

/// The mark says what this picture was made from, and how.
ResultMark markOf(const DevelopOptions &options)
{
    const char *const words[] = {"exposure", "global", "local"};
    ResultMark mark;
    mark.program = QStringLiteral("veskhdr");
    mark.version = QStringLiteral(VESK_VERSION);
    mark.sources = QStringList(QFileInfo(options.light).fileName());
    mark.method = QStringLiteral("develop");
    mark.options = QStringLiteral("--method %1 --exposure %2")
                       .arg(QLatin1String(words[int(options.how.method)]))
                       .arg(options.how.exposure);
    return mark;
}

ExitCode write(ProgressBar &bar, const DevelopOptions &options, const QImage &picture)
{
    WriteOptions how;
    how.metadata = metadata::read(options.light);
    how.mark = markOf(options);
    how.quality = options.quality;
    how.bitsPerSample = options.format == PictureFormat::Jpeg ? 8 : options.depth;
    how.mayReplace = options.mayReplace;
    how.progress = [&bar](double done) {
        bar.show(kDeveloped + (1 - kDeveloped) * done, QStringLiteral("Writing"));
    };
    how.temporaryName = interrupt::removeOnInterrupt;
    const WriteResult result = picture::write(picture, options.output, options.format, how);
    for (const QString &loss : result.leftOut)
        refuse(bar, ExitCode::Ok, options.output, QStringLiteral("warning: ") + loss);
    return result.error == OutputFile::Error::None
               ? ExitCode::Ok
               : refuse(bar, command_line::exitCodeOf(result.error), options.output, result.reason);
}

ExitCode developFile(const DevelopOptions &options)
{
    ProgressBar bar;
    ExitCode code = command_line::checkTarget(bar, options.output, options.mayReplace,
                                              QStringList(options.light));
    QImage light;
    if (code == ExitCode::Ok)
        code = readLight(bar, options, light);
    if (code != ExitCode::Ok)
        return code;
    fusion::Control control;
    control.progress = [&bar](double done) {
        bar.show(kRead + (kDeveloped - kRead) * done, QStringLiteral("Developing"));
    };
    const develop::Result result = develop::picture(light, options.how, control);
    if (result.status != fusion::Status::Done)
        return refuse(bar, ExitCode::NoMemory, options.output, QStringLiteral("not enough memory"));
    light = QImage();
    code = write(bar, options, result.picture);
    bar.clear();
    return code;
}

} // namespace

ExitCode command_line::runDevelop(const QStringList &words)
{
    const ParsedDevelopOptions parsed = parseDevelopOptions(words);
    if (!parsed.problem.isEmpty()) {
        console::complain(parsed.file, parsed.problem);
        return ExitCode::Usage;
    }
    try {
        return developFile(parsed.options);
    } catch (const std::bad_alloc &) {
        console::complain(parsed.options.output, QStringLiteral("not enough memory"));
        return ExitCode::NoMemory;
    }
}

QString command_line::developHelp()
{
    return QStringLiteral(
        R"(Usage: veskhdr develop [options] LIGHT -o OUT

Makes a picture for the screen from the light of a scene: from an OpenEXR, Radiance or
floating-point TIFF file, as 'veskhdr merge --method radiance' writes them.

Options:
  -o, --output OUT  File to write: PNG, JPEG or TIFF, by its suffix
  --method HOW      "local", which is the default: each place at the exposure that shows
                    it best; "global": one curve for the whole picture, whose lightest
                    part is white; "exposure": as one shot would show it, what is
                    brighter than white is white
  --exposure N      Brighten by so many stops first, -16 to 16 (0)
  --depth BITS      8 or 16 bits per channel; otherwise 16, and 8 for JPEG
  --quality N       JPEG quality, 1 to 100 (95)
  --max-megapixels N
                    Refuse larger pictures before taking memory for them (512)
  --force           Replace OUT if it exists, but never LIGHT
  --help            Show this text
  --                What follows is the file, even if it begins with "-"

Exit codes:
   0  the picture is written
  64  wrong options or arguments, unknown suffix of OUT
  65  the file is no picture, holds no light, is damaged or too large
  66  the file is missing, is not a file, or must not be read
  71  not enough memory
  73  OUT exists already, or cannot be made
  74  OUT could not be written to its end, e.g. the disk is full
Unless the exit code is 0, nothing is written and what stood in OUT's place stays.)");
}
