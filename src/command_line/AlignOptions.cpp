#include "AlignOptions.h"

#include "option_choice.h"
#include "picture_arguments.h"

#include <QCommandLineParser>
#include <QSet>

namespace {

using command_line::Choice;
using command_line::chosen;

constexpr Choice<exposure::Alignment> kAlignments[] = {
    {"perspective", exposure::Alignment::Perspective}, {"shift", exposure::Alignment::Shift}};

/// Pictures that are laid over each other are for screens.
std::optional<PictureFormat> screenFormat(std::optional<PictureFormat> format)
{
    return format && picture::isForLight(*format) ? std::nullopt : format;
}

ParsedAlignOptions problem(const QString &text, const QString &file = {})
{
    return {{}, file, text};
}

QString suffixOf(PictureFormat format)
{
    switch (format) {
    case PictureFormat::Png:
        return QStringLiteral(".png");
    case PictureFormat::Jpeg:
        return QStringLiteral(".jpg");
    case PictureFormat::OpenExr:
    case PictureFormat::RadianceHdr:
    case PictureFormat::Avif:
    case PictureFormat::JpegXl:
    case PictureFormat::Tiff:
        break;
    }
    return QStringLiteral(".tif");
}

/// The name of the picture's file in the folder; with another suffix where that asks for another
/// format than the one wanted, TIFF where it asks for none.
QString outputFor(const QString &picture, const QString &folder,
                  std::optional<PictureFormat> wanted)
{
    const QString name = picture.section(QLatin1Char('/'), -1);
    const std::optional<PictureFormat> own = screenFormat(picture::formatOfSuffix(name));
    const PictureFormat format = wanted.value_or(own.value_or(PictureFormat::Tiff));
    const QString start = folder + QLatin1Char('/');
    if (own == format)
        return start + name;
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return start + (dot > 0 ? name.left(dot) : name) + suffixOf(format);
}

/// The first output that is that of two pictures, or nothing.
QString doubleIn(const QStringList &outputs)
{
    QSet<QString> seen;
    for (const QString &output : outputs) {
        if (seen.contains(output))
            return output;
        seen += output;
    }
    return {};
}

ParsedAlignOptions check(const AlignOptions &options)
{
    if (options.pictures.isEmpty())
        return problem(QStringLiteral("align: no pictures given, see 'veskhdr align --help'"));
    if (options.pictures.size() == 1)
        return problem(QStringLiteral("only one picture given, aligning needs two or more"),
                       options.pictures.first());
    if (options.folder.isEmpty())
        return problem(QStringLiteral("align: no folder given, name it with -o"));
    const QString twice = doubleIn(options.outputs);
    if (!twice.isEmpty())
        return problem(QStringLiteral("would be the name of two aligned pictures"), twice);
    if (options.quality < 1 || options.quality > 100)
        return problem(QStringLiteral("align: the quality must be a number from 1 to 100"));
    if (options.pixelLimit == 0)
        return problem(QStringLiteral("align: the megapixels must be a number from 1 to %1")
                           .arg(command_line::kLargestPixelLimit / command_line::kMegapixel));
    if (options.json && options.verbose)
        return problem(QStringLiteral("align: --json and --verbose exclude each other"));
    return {options, {}, {}};
}

/// The words as options of the parser.
struct Words
{
    const QCommandLineOption folder{
        {QStringLiteral("o"), QStringLiteral("output")}, {}, QStringLiteral("folder")};
    const QCommandLineOption align{QStringLiteral("align"), {}, QStringLiteral("how")};
    const QCommandLineOption reference{QStringLiteral("reference"), {}, QStringLiteral("file")};
    const QCommandLineOption format{QStringLiteral("format"), {}, QStringLiteral("name")};
    const QCommandLineOption quality{QStringLiteral("quality"), {}, QStringLiteral("number")};
    const QCommandLineOption megapixels{
        QStringLiteral("max-megapixels"), {}, QStringLiteral("number")};
    const QCommandLineOption keepOrder{QStringLiteral("keep-order")};
    const QCommandLineOption crop{QStringLiteral("crop")};
    const QCommandLineOption force{QStringLiteral("force")};
    const QCommandLineOption json{QStringLiteral("json")};
    const QCommandLineOption verbose{QStringLiteral("verbose")};

    void addTo(QCommandLineParser &parser) const
    {
        parser.addOptions({folder, align, reference, format, quality, megapixels, keepOrder, crop,
                           force, json, verbose});
    }
};

/// How to align and what to write; the problem in words, or nothing.
QString readChoices(const QCommandLineParser &parser, const Words &words, AlignOptions &options)
{
    if (parser.isSet(words.align)) {
        const auto alignment = chosen(parser.value(words.align), kAlignments);
        if (!alignment)
            return QStringLiteral("the pictures are aligned by perspective or shift");
        options.alignment = *alignment;
    }
    std::optional<PictureFormat> format;
    if (parser.isSet(words.format)) {
        format = screenFormat(picture::formatOfWord(parser.value(words.format).toLower()));
        if (!format)
            return QStringLiteral("the format is png, jpeg or tiff");
    }
    for (const QString &picture : std::as_const(options.pictures))
        options.outputs += outputFor(picture, options.folder, format);
    if (parser.isSet(words.reference)) {
        options.reference =
            command_line::indexOfPicture(parser.value(words.reference), options.pictures);
        if (options.reference < 0)
            return QStringLiteral("--reference takes one of the pictures");
    }
    return {};
}

} // namespace

ParsedAlignOptions command_line::parseAlignOptions(const QStringList &arguments)
{
    const Words words;
    QCommandLineParser parser;
    words.addTo(parser);
    if (!parser.parse(QStringList(QStringLiteral("veskhdr")) + arguments))
        return problem(QStringLiteral("align: ") + parser.errorText());
    if (parser.values(words.folder).size() > 1)
        return problem(QStringLiteral("align: more than one output folder given"));
    AlignOptions options;
    options.pictures = inMergeOrder(parser.positionalArguments(), parser.isSet(words.keepOrder));
    options.folder = parser.value(words.folder);
    while (options.folder.size() > 1 && options.folder.endsWith(QLatin1Char('/')))
        options.folder.chop(1);
    const QString wrong = readChoices(parser, words, options);
    if (!wrong.isEmpty())
        return problem(QStringLiteral("align: ") + wrong);
    if (parser.isSet(words.quality))
        options.quality = parser.value(words.quality).toInt();
    if (parser.isSet(words.megapixels))
        options.pixelLimit = pixelLimitOf(parser.value(words.megapixels));
    options.crop = parser.isSet(words.crop);
    options.mayReplace = parser.isSet(words.force);
    options.json = parser.isSet(words.json);
    options.verbose = parser.isSet(words.verbose);
    return check(options);
}
