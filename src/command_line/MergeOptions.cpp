#include "MergeOptions.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace {

constexpr qint64 kMegapixel = 1000 * 1000;
constexpr qint64 kLargestPixelLimit = 1000 * 1000 * kMegapixel;

/// One name for every way to write a path; the path itself when there is no such file.
QString identity(const QString &path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(path) : canonical;
}

QStringList eachFileOnce(const QStringList &paths)
{
    QSet<QString> seen;
    QStringList once;
    for (const QString &path : paths) {
        const QString file = identity(path);
        if (!seen.contains(file))
            once += path;
        seen += file;
    }
    return once;
}

/// The way of the "Merge to HDR" tool: ascending by UTF-16 code units, the same file once.
QStringList inMergeOrder(const QStringList &paths, bool keepOrder)
{
    QStringList pictures = eachFileOnce(paths);
    if (!keepOrder)
        std::sort(pictures.begin(), pictures.end());
    return pictures;
}

ParsedMergeOptions problem(const QString &text, const QString &file = {})
{
    return {{}, file, text};
}

ParsedMergeOptions check(const MergeOptions &options)
{
    if (options.pictures.isEmpty())
        return problem(QStringLiteral("merge: no pictures given, see 'veskhdr merge --help'"));
    if (options.pictures.size() == 1)
        return problem(QStringLiteral("only one picture given, merging needs two or more"),
                       options.pictures.first());
    if (options.output.isEmpty())
        return problem(QStringLiteral("merge: no output file given, name it with -o"));
    if (!formatOfSuffix(options.output))
        return problem(
            QStringLiteral("unknown kind of output file, the name must end in .png, .jpg, .jpeg, "
                           ".tif or .tiff"),
            options.output);
    if (options.quality < 1 || options.quality > 100)
        return problem(QStringLiteral("merge: the quality must be a number from 1 to 100"));
    if (options.pixelLimit < kMegapixel || options.pixelLimit > kLargestPixelLimit)
        return problem(QStringLiteral("merge: the megapixels must be a number from 1 to %1")
                           .arg(kLargestPixelLimit / kMegapixel));
    if (options.json && options.verbose)
        return problem(QStringLiteral("merge: --json and --verbose exclude each other"));
    return {options, {}, {}};
}

} // namespace

ParsedMergeOptions parseMergeOptions(const QStringList &words)
{
    const QCommandLineOption output({QStringLiteral("o"), QStringLiteral("output")}, {},
                                    QStringLiteral("file"));
    const QCommandLineOption quality(QStringLiteral("quality"), {}, QStringLiteral("number"));
    const QCommandLineOption megapixels(QStringLiteral("max-megapixels"), {},
                                        QStringLiteral("number"));
    const QCommandLineOption device(QStringLiteral("device"), {}, QStringLiteral("name"));
    const QCommandLineOption noAlign(QStringLiteral("no-align"));
    const QCommandLineOption keepOrder(QStringLiteral("keep-order"));
    const QCommandLineOption crop(QStringLiteral("crop"));
    const QCommandLineOption force(QStringLiteral("force"));
    const QCommandLineOption json(QStringLiteral("json"));
    const QCommandLineOption verbose(QStringLiteral("verbose"));
    QCommandLineParser parser;
    parser.addOptions(
        {output, quality, megapixels, device, noAlign, keepOrder, crop, force, json, verbose});
    if (!parser.parse(QStringList(QStringLiteral("veskhdr")) + words))
        return problem(QStringLiteral("merge: ") + parser.errorText());
    if (parser.values(output).size() > 1)
        return problem(QStringLiteral("merge: more than one output file given"));
    if (parser.isSet(device) && parser.value(device).isEmpty())
        return problem(QStringLiteral("merge: the device must be a name, see 'veskhdr devices'"));

    MergeOptions options;
    options.keepOrder = parser.isSet(keepOrder);
    options.pictures = inMergeOrder(parser.positionalArguments(), options.keepOrder);
    options.output = parser.value(output);
    options.format = formatOfSuffix(options.output).value_or(PictureFormat::Png);
    options.isQualityUnused = parser.isSet(quality) && options.format != PictureFormat::Jpeg;
    options.quality = parser.isSet(quality) ? parser.value(quality).toInt() : kDefaultQuality;
    if (parser.isSet(megapixels))
        options.pixelLimit = qint64(parser.value(megapixels).toInt()) * kMegapixel;
    if (parser.value(device) != QLatin1String("processor"))
        options.device = parser.value(device);
    options.align = !parser.isSet(noAlign);
    options.crop = parser.isSet(crop);
    options.mayReplace = parser.isSet(force);
    options.json = parser.isSet(json);
    options.verbose = parser.isSet(verbose);
    return check(options);
}
