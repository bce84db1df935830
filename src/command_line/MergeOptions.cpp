#include "MergeOptions.h"

#include "MetadataOptions.h"
#include "OutputOptions.h"
#include "PartOptions.h"
#include "option_choice.h"
#include "picture_arguments.h"

#include <QCommandLineParser>

#include <optional>
#include <vector>

namespace {

using command_line::Choice;
using command_line::chosen;
using command_line::indexOfPicture;
using command_line::kLargestPixelLimit;
using command_line::kMegapixel;

ParsedMergeOptions problem(const QString &text, const QString &file = {})
{
    return {{}, file, text};
}

constexpr Choice<MergeMethod> kMethods[] = {{"fusion", MergeMethod::Fusion},
                                            {"radiance", MergeMethod::Radiance},
                                            {"mean", MergeMethod::Mean}};
constexpr Choice<exposure::Alignment> kAlignments[] = {
    {"perspective", exposure::Alignment::Perspective},
    {"shift", exposure::Alignment::Shift},
    {"none", exposure::Alignment::None}};

/// An option whose value is a number within bounds.
struct NumberOption
{
    QCommandLineOption option;
    double least;
    double most;
    double exposure::Look::*adjustment = nullptr; ///< what it sets: this
    double fusion::Options::*weight = nullptr;    ///< or that
};

NumberOption numberOption(const char *name, double least, double most)
{
    return {QCommandLineOption(QLatin1String(name), {}, QStringLiteral("number")), least, most};
}

NumberOption adjusting(const char *name, double least, double most, double exposure::Look::*member)
{
    NumberOption number = numberOption(name, least, most);
    number.adjustment = member;
    return number;
}

NumberOption weighing(const char *name, double fusion::Options::*member)
{
    NumberOption number = numberOption(name, 0.0, 4.0);
    number.weight = member;
    return number;
}

/// The options that only exposure fusion has.
class FusionOptions
{
public:
    FusionOptions()
        : numbers{adjusting("exposure", -4.0, 4.0, &exposure::Look::exposure),
                  adjusting("contrast", -1.0, 1.0, &exposure::Look::contrast),
                  adjusting("highlights", -1.0, 1.0, &exposure::Look::highlights),
                  adjusting("shadows", -1.0, 1.0, &exposure::Look::shadows),
                  adjusting("black-point", 0.0, 0.4, &exposure::Look::blackPoint),
                  adjusting("white-point", 0.6, 1.0, &exposure::Look::whitePoint),
                  adjusting("saturation", 0.0, 3.0, &exposure::Look::saturation),
                  weighing("exposure-weight", &fusion::Options::exposureWeight),
                  weighing("contrast-weight", &fusion::Options::contrastWeight),
                  weighing("saturation-weight", &fusion::Options::saturationWeight)}
    {
    }

    void addTo(QCommandLineParser &parser) const
    {
        parser.addOptions({reference, ghosts, ghostMask});
        parts.addTo(parser);
        for (const NumberOption &number : numbers)
            parser.addOption(number.option);
    }

    /// Sets what was given; the problem in words, or nothing.
    QString read(const QCommandLineParser &parser, MergeOptions &options) const
    {
        QString problem = readNumbers(parser, options);
        if (problem.isEmpty())
            problem = readReferences(parser, options);
        if (problem.isEmpty())
            problem = parts.read(parser, options);
        if (problem.isEmpty() && parser.isSet(ghostMask)) {
            options.ghostMask = parser.value(ghostMask);
            const auto format = picture::formatOfSuffix(options.ghostMask);
            if (!format || picture::isForLight(*format))
                problem = QStringLiteral("the name of the ghost mask must end in .png, .jpg, "
                                         ".jpeg, .tif or .tiff");
        }
        return problem;
    }

    /// Name of the first that was given although the method has none such; empty when none was.
    QString strayOption(const QCommandLineParser &parser, MergeMethod method) const
    {
        QList<QCommandLineOption> all;
        if (method == MergeMethod::Mean)
            all += QList{reference, ghosts, ghostMask} + parts.all();
        for (const NumberOption &number : numbers) {
            if (method != MergeMethod::Fusion)
                all += number.option;
        }
        for (const QCommandLineOption &option : all) {
            if (parser.isSet(option))
                return QStringLiteral("--") + option.names().constFirst();
        }
        return {};
    }

private:
    QString readNumbers(const QCommandLineParser &parser, MergeOptions &options) const
    {
        for (const NumberOption &number : numbers) {
            if (!parser.isSet(number.option))
                continue;
            bool isNumber = false;
            const double value = parser.value(number.option).toDouble(&isNumber);
            if (!isNumber || !(value >= number.least && value <= number.most))
                return QStringLiteral("--%1 must be a number from %2 to %3")
                    .arg(number.option.names().constFirst())
                    .arg(number.least)
                    .arg(number.most);
            if (number.adjustment)
                options.fusion.adjustment.*number.adjustment = value;
            else
                options.fusion.weights.*number.weight = value;
        }
        return {};
    }

    QString readReferences(const QCommandLineParser &parser, MergeOptions &options) const
    {
        const QString ghostWord = parser.value(ghosts);
        if (ghostWord == QLatin1String("off"))
            options.fusion.ghosts = exposure::Ghosts::Keep;
        const bool isPicture = parser.isSet(ghosts) && ghostWord != QLatin1String("off") &&
                               ghostWord != QLatin1String("auto");
        if (isPicture)
            options.fusion.ghostReference = indexOfPicture(ghostWord, options.pictures);
        if (parser.isSet(reference))
            options.fusion.reference = indexOfPicture(parser.value(reference), options.pictures);
        if (isPicture && options.fusion.ghostReference < 0)
            return QStringLiteral("--ghosts takes off, auto or one of the pictures");
        if (parser.isSet(reference) && options.fusion.reference < 0)
            return QStringLiteral("--reference takes one of the pictures");
        return {};
    }

    const QCommandLineOption reference{QStringLiteral("reference"), {}, QStringLiteral("file")};
    const QCommandLineOption ghosts{QStringLiteral("ghosts"), {}, QStringLiteral("which")};
    const QCommandLineOption ghostMask{QStringLiteral("ghost-mask"), {}, QStringLiteral("file")};
    const PartOptions parts;
    const std::vector<NumberOption> numbers;
};

/// The method and the alignment; the problem in words, or nothing.
QString readMethod(const QCommandLineParser &parser, const QString &method, const QString &align,
                   bool noAlign, const FusionOptions &ofFusion, MergeOptions &options)
{
    const std::optional<MergeMethod> chosenMethod = chosen(method, kMethods);
    if (!chosenMethod)
        return QStringLiteral("the method is fusion, radiance or mean");
    options.method = *chosenMethod;
    const bool isMean = options.method == MergeMethod::Mean;
    const auto usual = QString::fromLatin1(isMean ? "shift" : "perspective");
    const std::optional<exposure::Alignment> alignment = chosen(noAlign ? QStringLiteral("none")
                                                                : align.isEmpty() ? usual
                                                                                  : align,
                                                                kAlignments);
    if (!alignment || (noAlign && !align.isEmpty() && align != QLatin1String("none")))
        return QStringLiteral("the pictures are aligned by perspective, shift or none");
    options.fusion.alignment = *alignment;
    if (isMean && *alignment == exposure::Alignment::Perspective)
        return QStringLiteral("the mean is aligned by shift or none");
    if (!isMean && !options.device.isEmpty())
        return QStringLiteral("--device goes with --method mean");
    const QString stray = ofFusion.strayOption(parser, options.method);
    return stray.isEmpty() ? QString() : stray + QStringLiteral(" goes with --method fusion");
}

ParsedMergeOptions check(const MergeOptions &options)
{
    if (options.pictures.isEmpty())
        return problem(QStringLiteral("merge: no pictures given, see 'veskhdr merge --help'"));
    if (options.pictures.size() == 1)
        return problem(QStringLiteral("only one picture given, merging needs two or more"),
                       options.pictures.first());
    if (options.method != MergeMethod::Mean && size_t(options.pictures.size()) > fusion::kMostShots)
        return problem(QStringLiteral("merge: %2 takes %1 pictures at most, --method mean more")
                           .arg(fusion::kMostShots)
                           .arg(wordOf(options.method)));
    if (options.output.isEmpty())
        return problem(QStringLiteral("merge: no output file given, name it with -o"));
    if (!options.hasFormat && !picture::formatOfSuffix(options.output) &&
        !picture::brightFormatOfSuffix(options.output))
        return problem(
            QStringLiteral("unknown kind of output file, the name must end in .png, .jpg, .jpeg, "
                           ".tif, .tiff, .exr or .hdr, with --hdr in .jpg, .avif or .jxl"),
            options.output);
    if (options.isToStandardOutput() && (options.json || options.verbose))
        return problem(
            QStringLiteral("merge: --json and --verbose need standard output for themselves"));
    if (options.quality < 1 || options.quality > 100)
        return problem(QStringLiteral("merge: the quality must be a number from 1 to 100"));
    if (options.pixelLimit == 0)
        return problem(QStringLiteral("merge: the megapixels must be a number from 1 to %1")
                           .arg(kLargestPixelLimit / kMegapixel));
    if (options.json && options.verbose)
        return problem(QStringLiteral("merge: --json and --verbose exclude each other"));
    return {options, {}, {}};
}

/// The options that every merge has.
struct UsualOptions
{
    void addTo(QCommandLineParser &parser) const
    {
        parser.addOptions({output, quality, megapixels, device, method, align, noAlign, keepOrder,
                           crop, force, json, verbose});
    }

    /// What is wrong with the words themselves, or nothing.
    QString check(const QCommandLineParser &parser) const
    {
        if (parser.values(output).size() > 1)
            return QStringLiteral("more than one output file given");
        if (parser.isSet(device) && parser.value(device).isEmpty())
            return QStringLiteral("the device must be a name, see 'veskhdr devices'");
        return {};
    }

    void read(const QCommandLineParser &parser, MergeOptions &options) const
    {
        options.keepOrder = parser.isSet(keepOrder);
        options.pictures =
            command_line::inMergeOrder(parser.positionalArguments(), options.keepOrder);
        options.output = parser.value(output);
        options.quality = parser.isSet(quality) ? parser.value(quality).toInt() : kDefaultQuality;
        if (parser.isSet(megapixels))
            options.pixelLimit = command_line::pixelLimitOf(parser.value(megapixels));
        if (parser.value(device) != QLatin1String("processor"))
            options.device = parser.value(device);
        options.crop = parser.isSet(crop);
        options.fusion.crop = options.crop;
        options.mayReplace = parser.isSet(force);
        options.json = parser.isSet(json);
        options.verbose = parser.isSet(verbose);
    }

    /// Who names a device wants the mean: devices know no other, and all give the same pixels. Who
    /// names a file for light wants the radiance.
    QString methodWord(const QCommandLineParser &parser, PictureFormat format) const
    {
        if (parser.isSet(method))
            return parser.value(method);
        return wordOf(parser.isSet(device)          ? MergeMethod::Mean
                      : picture::isForLight(format) ? MergeMethod::Radiance
                                                    : MergeMethod::Fusion);
    }

    const QCommandLineOption output{
        {QStringLiteral("o"), QStringLiteral("output")}, {}, QStringLiteral("file")};
    const QCommandLineOption quality{QStringLiteral("quality"), {}, QStringLiteral("number")};
    const QCommandLineOption megapixels{
        QStringLiteral("max-megapixels"), {}, QStringLiteral("number")};
    const QCommandLineOption device{QStringLiteral("device"), {}, QStringLiteral("name")};
    const QCommandLineOption method{QStringLiteral("method"), {}, QStringLiteral("name")};
    const QCommandLineOption align{QStringLiteral("align"), {}, QStringLiteral("how")};
    const QCommandLineOption noAlign{QStringLiteral("no-align")};
    const QCommandLineOption keepOrder{QStringLiteral("keep-order")};
    const QCommandLineOption crop{QStringLiteral("crop")};
    const QCommandLineOption force{QStringLiteral("force")};
    const QCommandLineOption json{QStringLiteral("json")};
    const QCommandLineOption verbose{QStringLiteral("verbose")};
};

} // namespace

QString wordOf(MergeMethod method)
{
    for (const Choice<MergeMethod> &choice : kMethods) {
        if (choice.value == method)
            return QLatin1String(choice.word);
    }
    return {};
}

ParsedMergeOptions command_line::parseMergeOptions(const QStringList &words)
{
    const UsualOptions usual;
    const FusionOptions ofFusion;
    const MetadataOptions ofMetadata;
    const OutputOptions ofOutput;
    QCommandLineParser parser;
    usual.addTo(parser);
    ofFusion.addTo(parser);
    ofMetadata.addTo(parser);
    ofOutput.addTo(parser);
    if (!parser.parse(QStringList(QStringLiteral("veskhdr")) + words))
        return problem(QStringLiteral("merge: ") + parser.errorText());
    MergeOptions options;
    QString wrong = usual.check(parser);
    usual.read(parser, options);
    if (wrong.isEmpty())
        wrong = ofOutput.read(parser, options);
    options.isQualityUnused = parser.isSet(usual.quality) &&
                              options.format != PictureFormat::Jpeg &&
                              !picture::isForBrightScreens(options.format);
    if (wrong.isEmpty())
        wrong =
            readMethod(parser, usual.methodWord(parser, options.format), parser.value(usual.align),
                       parser.isSet(usual.noAlign), ofFusion, options);
    if (wrong.isEmpty())
        wrong = ofFusion.read(parser, options);
    if (wrong.isEmpty())
        wrong = ofMetadata.read(parser, options);
    if (wrong.isEmpty())
        wrong = ofOutput.check(parser, options);
    return wrong.isEmpty() ? check(options) : problem(QStringLiteral("merge: ") + wrong);
}
