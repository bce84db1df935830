#include "OutputOptions.h"

#include "option_choice.h"

namespace {

using colour_profile::Space;
using command_line::Choice;
using command_line::chosen;

constexpr Choice<Space> kSpaces[] = {{"srgb", Space::Srgb},
                                     {"adobe", Space::AdobeRgb},
                                     {"prophoto", Space::ProPhotoRgb},
                                     {"p3", Space::DisplayP3}};
constexpr Choice<TiffCompression> kCompressions[] = {{"none", TiffCompression::None},
                                                     {"lzw", TiffCompression::Lzw},
                                                     {"deflate", TiffCompression::Deflate}};

} // namespace

void OutputOptions::addTo(QCommandLineParser &parser) const
{
    parser.addOptions({format, depth, rawSpace, outputSpace, compression, effort, hdr, peak});
}

QString OutputOptions::read(const QCommandLineParser &parser, MergeOptions &options) const
{
    QString problem = readFormat(parser, options);
    if (problem.isEmpty())
        problem = readSpaces(parser, options);
    if (problem.isEmpty())
        problem = readBright(parser, options);
    return problem.isEmpty() ? readNumbers(parser, options) : problem;
}

QString OutputOptions::readBright(const QCommandLineParser &parser, MergeOptions &options) const
{
    options.isBright = parser.isSet(hdr);
    if (!parser.isSet(peak))
        return {};
    bool isNumber = false;
    options.peak = parser.value(peak).toDouble(&isNumber);
    if (!isNumber || !(options.peak >= display::kLeastPeak && options.peak <= display::kMostPeak))
        return QStringLiteral("--peak must be a number from %1 to %2")
            .arg(display::kLeastPeak)
            .arg(display::kMostPeak);
    return options.isBright ? QString() : QStringLiteral("--peak goes with --hdr");
}

QString OutputOptions::readFormat(const QCommandLineParser &parser, MergeOptions &options) const
{
    const QString word = parser.value(format);
    std::optional<PictureFormat> named = picture::formatOfWord(word);
    if (!named)
        named = picture::brightFormatOfSuffix(QLatin1Char('.') + word);
    if (parser.isSet(format) && !named)
        return QStringLiteral("the format is png, jpeg, tiff, exr, hdr, avif or jxl");
    if (!named && options.isToStandardOutput())
        return QStringLiteral("standard output has no suffix, name its format with --format");
    options.hasFormat = named.has_value();
    const std::optional<PictureFormat> usual = picture::formatOfSuffix(options.output);
    const std::optional<PictureFormat> bright = picture::brightFormatOfSuffix(options.output);
    options.format = named.value_or(usual.value_or(bright.value_or(PictureFormat::Png)));
    return {};
}

QString OutputOptions::readSpaces(const QCommandLineParser &parser, MergeOptions &options) const
{
    const QString names = QStringLiteral("--%1 takes srgb, adobe, prophoto or p3");
    const std::optional<Space> ofRaw = chosen(parser.value(rawSpace), kSpaces);
    if (parser.isSet(rawSpace) && !ofRaw)
        return names.arg(QStringLiteral("raw-space"));
    options.rawSpace = ofRaw.value_or(Space::Srgb);
    options.outputSpace = chosen(parser.value(outputSpace), kSpaces);
    if (parser.isSet(outputSpace) && !options.outputSpace)
        return names.arg(QStringLiteral("output-space"));
    const std::optional<TiffCompression> kind = chosen(parser.value(compression), kCompressions);
    if (parser.isSet(compression) && !kind)
        return QStringLiteral("--tiff-compression takes none, lzw or deflate");
    options.tiffCompression = kind.value_or(TiffCompression::Lzw);
    return {};
}

QString OutputOptions::readNumbers(const QCommandLineParser &parser, MergeOptions &options) const
{
    options.depth = parser.value(depth).toInt();
    if (parser.isSet(depth) && options.depth != 8 && options.depth != 16 && options.depth != 32)
        return QStringLiteral("--depth takes 8, 16 or 32");
    if (parser.isSet(effort))
        options.effort = parser.value(effort).toInt();
    return options.effort < 1 || options.effort > 9
               ? QStringLiteral("--effort must be a number from 1 to 9")
               : QString();
}

/// Light needs floats, and floats are for light.
QString OutputOptions::checkLight(const MergeOptions &options)
{
    const bool isLight = options.method == MergeMethod::Radiance;
    if (picture::isForLight(options.format) && !isLight)
        return QStringLiteral("OpenEXR and Radiance files go with --method radiance");
    if (!isLight)
        return options.depth == 32 ? QStringLiteral("--depth 32 goes with --method radiance")
                                   : QString();
    const bool isTiff = options.format == PictureFormat::Tiff;
    if (!picture::isForLight(options.format) && !isTiff)
        return QStringLiteral("the radiance goes to .exr, .hdr or .tif files");
    if (options.outputSpace)
        return QStringLiteral("--output-space goes with --method fusion");
    const bool hasDepth = options.format == PictureFormat::OpenExr ? options.depth != 8
                          : isTiff ? options.depth == 0 || options.depth == 32
                                   : options.depth == 0;
    return hasDepth ? QString()
                    : QStringLiteral("of the radiance OpenEXR files have 16 or 32 bits, TIFF files "
                                     "32, and --depth says nothing of Radiance files");
}

/// Bright pictures are fused ones in the formats that hold them.
QString OutputOptions::checkBright(const QCommandLineParser &parser,
                                   const MergeOptions &options) const
{
    const bool isForBright = picture::isForBrightScreens(options.format);
    if (isForBright && !options.isBright)
        return QStringLiteral("AVIF and JPEG XL files go with --hdr");
    if (!options.isBright)
        return {};
    if (!isForBright && options.format != PictureFormat::Jpeg)
        return QStringLiteral("--hdr needs .jpg, .avif or .jxl");
    if (options.method != MergeMethod::Fusion)
        return QStringLiteral("--hdr goes with --method fusion");
    if (!picture::isWritable(options.format))
        return QStringLiteral("this program was built without %1 files")
            .arg(options.format == PictureFormat::Avif ? QStringLiteral("AVIF")
                                                       : QStringLiteral("JPEG XL"));
    const bool isGiven = parser.isSet(depth) || parser.isSet(outputSpace);
    return isForBright && isGiven
               ? QStringLiteral("AVIF and JPEG XL files have 10 bits and the colours of Rec. 2020, "
                                "without --depth and --output-space")
               : QString();
}

QString OutputOptions::check(const QCommandLineParser &parser, const MergeOptions &options) const
{
    QString wrong = checkBright(parser, options);
    if (wrong.isEmpty())
        wrong = checkLight(options);
    if (!wrong.isEmpty())
        return wrong;
    if (options.depth == 16 && options.format == PictureFormat::Jpeg)
        return QStringLiteral("JPEG files have 8 bits");
    if (parser.isSet(compression) && options.format != PictureFormat::Tiff)
        return QStringLiteral("--tiff-compression goes with TIFF files");
    if (options.method == MergeMethod::Mean && options.depth == 16)
        return QStringLiteral("the mean has 8 bits, --depth 16 goes with --method fusion");
    const bool hasSpace = parser.isSet(rawSpace) || parser.isSet(outputSpace);
    if (options.method == MergeMethod::Mean && hasSpace)
        return QStringLiteral("--%1 goes with --method fusion")
            .arg((parser.isSet(rawSpace) ? rawSpace : outputSpace).names().constFirst());
    return {};
}
