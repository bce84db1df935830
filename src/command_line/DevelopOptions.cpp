#include "DevelopOptions.h"

#include "option_choice.h"
#include "picture_arguments.h"

#include <QCommandLineParser>

#include <cmath>

namespace {

using command_line::Choice;
using command_line::chosen;

constexpr double kMostStops = 16.0;
constexpr Choice<develop::Method> kMethods[] = {{"exposure", develop::Method::Exposure},
                                                {"global", develop::Method::Global},
                                                {"local", develop::Method::Local}};

ParsedDevelopOptions problem(const QString &text, const QString &file = {})
{
    return {{}, file, text};
}

/// The words as options of the parser.
struct Words
{
    const QCommandLineOption output{
        {QStringLiteral("o"), QStringLiteral("output")}, {}, QStringLiteral("file")};
    const QCommandLineOption method{QStringLiteral("method"), {}, QStringLiteral("how")};
    const QCommandLineOption exposure{QStringLiteral("exposure"), {}, QStringLiteral("stops")};
    const QCommandLineOption depth{QStringLiteral("depth"), {}, QStringLiteral("bits")};
    const QCommandLineOption quality{QStringLiteral("quality"), {}, QStringLiteral("number")};
    const QCommandLineOption megapixels{
        QStringLiteral("max-megapixels"), {}, QStringLiteral("number")};
    const QCommandLineOption force{QStringLiteral("force")};

    void addTo(QCommandLineParser &parser) const
    {
        parser.addOptions({output, method, exposure, depth, quality, megapixels, force});
    }
};

/// The problem in words, or nothing.
QString readMethod(const QCommandLineParser &parser, const Words &words, develop::Options &how)
{
    if (parser.isSet(words.method)) {
        const auto method = chosen(parser.value(words.method), kMethods);
        if (!method)
            return QStringLiteral("the method is exposure, global or local");
        how.method = *method;
    }
    bool isNumber = true;
    if (parser.isSet(words.exposure))
        how.exposure = parser.value(words.exposure).toDouble(&isNumber);
    return isNumber && std::abs(how.exposure) <= kMostStops
               ? QString()
               : QStringLiteral("the exposure must be a number of stops from -16 to 16");
}

QString readOutput(const QCommandLineParser &parser, const Words &words, DevelopOptions &options)
{
    const auto format = picture::formatOfSuffix(options.output);
    if (!format || picture::isForLight(*format))
        return QStringLiteral("the result is a PNG, JPEG or TIFF file, by its suffix");
    options.format = *format;
    options.depth = parser.value(words.depth).toInt();
    if (parser.isSet(words.depth) && options.depth != 8 && options.depth != 16)
        return QStringLiteral("--depth takes 8 or 16");
    if (options.depth == 16 && options.format == PictureFormat::Jpeg)
        return QStringLiteral("JPEG files have 8 bits");
    if (parser.isSet(words.quality))
        options.quality = parser.value(words.quality).toInt();
    if (options.quality < 1 || options.quality > 100)
        return QStringLiteral("the quality must be a number from 1 to 100");
    if (parser.isSet(words.megapixels))
        options.pixelLimit = command_line::pixelLimitOf(parser.value(words.megapixels));
    return options.pixelLimit > 0
               ? QString()
               : QStringLiteral("the megapixels must be a number from 1 to %1")
                     .arg(command_line::kLargestPixelLimit / command_line::kMegapixel);
}

} // namespace

ParsedDevelopOptions command_line::parseDevelopOptions(const QStringList &arguments)
{
    const Words words;
    QCommandLineParser parser;
    words.addTo(parser);
    const QString command = QStringLiteral("develop: ");
    if (!parser.parse(QStringList(QStringLiteral("veskhdr")) + arguments))
        return problem(command + parser.errorText());
    if (parser.positionalArguments().size() != 1)
        return problem(command + QStringLiteral("name one file, see 'veskhdr develop --help'"));
    if (parser.values(words.output).size() != 1)
        return problem(command + QStringLiteral("name one output file with -o"));
    DevelopOptions options;
    options.light = parser.positionalArguments().constFirst();
    options.output = parser.value(words.output);
    options.mayReplace = parser.isSet(words.force);
    const QString wrongMethod = readMethod(parser, words, options.how);
    if (!wrongMethod.isEmpty())
        return problem(command + wrongMethod);
    const QString wrongOutput = readOutput(parser, words, options);
    if (!wrongOutput.isEmpty())
        return problem(wrongOutput, options.output);
    return {options, {}, {}};
}
