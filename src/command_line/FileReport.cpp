#include "FileReport.h"

#include "XmpPacket.h"
#include "file_names.h"
#include "metadata_reader.h"
#include "regular_file.h"
#include "xmp_namespaces.h"

#include <VeskRawType.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

using Directory = ExifTags::Directory;

constexpr int kRawBits = 16; // as they are converted

std::optional<PictureHeader> headerOf(const QString &path, QFile &file, const Shot &shot)
{
    if (!VeskRawType::isRaw(path))
        return picture::headerOf(file);
    PictureHeader header;
    header.format = QStringLiteral("camera raw");
    header.size = shot.orientation >= 5 ? shot.size.transposed() : shot.size;
    header.bitsPerSample = kRawBits;
    return header;
}

QString ratingIn(const QByteArray &xmp)
{
    const std::optional<XmpPacket> packet = XmpPacket::parse(xmp);
    return packet ? packet->text(xmp::kBasic, "Rating") : QString();
}

FileReport failure(const QString &path, ExitCode error, const QString &problem)
{
    FileReport report;
    report.path = path;
    report.error = error;
    report.problem = problem;
    return report;
}

QSize uprightSize(const FileReport &report)
{
    const QSize size = report.header.size;
    return report.shot.orientation >= 5 && !report.header.isUpright ? size.transposed() : size;
}

QJsonValue orNull(const QString &text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

QJsonValue orNull(double number)
{
    return number > 0 ? QJsonValue(number) : QJsonValue();
}

QString momentOf(const Shot &shot)
{
    return shot.takenAt.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss.zzz"));
}

QString exifText(const FileReport &report, Directory directory, ExifTags::Tag tag)
{
    return report.metadata.exif.text(directory, tag);
}

QJsonArray kindsOf(const Metadata &metadata)
{
    QJsonArray kinds;
    if (!metadata.exif.isEmpty())
        kinds.append(QStringLiteral("exif"));
    if (!metadata.xmp.isEmpty())
        kinds.append(QStringLiteral("xmp"));
    if (!metadata.iptc.isEmpty())
        kinds.append(QStringLiteral("iptc"));
    return kinds;
}

QJsonValue toJson(const std::optional<ResultMark> &mark)
{
    if (!mark)
        return {};
    return QJsonObject{{QStringLiteral("program"), mark->program},
                       {QStringLiteral("version"), mark->version},
                       {QStringLiteral("method"), mark->method},
                       {QStringLiteral("options"), mark->options},
                       {QStringLiteral("sources"), QJsonArray::fromStringList(mark->sources)}};
}

/// Of the channel that reaches highest.
const GainMapTerms::Channel &brightestOf(const GainMapTerms &terms)
{
    return *std::max_element(
        terms.channels.begin(), terms.channels.end(),
        [](const auto &one, const auto &other) { return one.most < other.most; });
}

QJsonValue toJson(const std::optional<gain_map::Found> &map)
{
    if (!map)
        return {};
    if (!map->problem.isEmpty())
        return QJsonObject{{QStringLiteral("problem"), map->problem}};
    const GainMapTerms::Channel &channel = brightestOf(map->terms);
    return QJsonObject{
        {QStringLiteral("width"), map->size.width()},
        {QStringLiteral("height"), map->size.height()},
        {QStringLiteral("form"), map->isIso ? QStringLiteral("iso") : QStringLiteral("xmp")},
        {QStringLiteral("least"), channel.least},
        {QStringLiteral("most"), channel.most},
        {QStringLiteral("headroom"), map->terms.alternateHeadroom}};
}

QString gainMapText(const gain_map::Found &map)
{
    if (!map.problem.isEmpty())
        return map.problem;
    const GainMapTerms::Channel &channel = brightestOf(map.terms);
    return QStringLiteral("%1 x %2, %3 to %4 stops, full from %5 stops above white%6")
        .arg(map.size.width())
        .arg(map.size.height())
        .arg(channel.least, 0, 'f', 2)
        .arg(channel.most, 0, 'f', 2)
        .arg(map.terms.alternateHeadroom, 0, 'f', 2)
        .arg(map.isIso ? QString() : QStringLiteral(", in the older XMP form"));
}

/// As photographers write it: 1/250 s, 2.5 s.
QString secondsText(double seconds)
{
    constexpr double kShortest = 0.3;
    return seconds < kShortest ? QStringLiteral("1/%1 s").arg(qRound(1 / seconds))
                               : QStringLiteral("%1 s").arg(seconds);
}

QString exposureText(const Shot &shot)
{
    QStringList words;
    if (shot.exposureSeconds > 0)
        words += secondsText(shot.exposureSeconds);
    if (shot.fNumber > 0)
        words += QStringLiteral("f/%1").arg(shot.fNumber);
    if (shot.iso > 0)
        words += QStringLiteral("ISO %1").arg(shot.iso);
    if (shot.exposureBias.value_or(0) != 0)
        words += QStringLiteral("bias %1").arg(*shot.exposureBias, 0, 'f', 1);
    return words.join(QStringLiteral(", "));
}

QString pixelsText(const FileReport &report)
{
    const QSize size = uprightSize(report);
    QStringList words{report.header.format,
                      QStringLiteral("%1 x %2").arg(size.width()).arg(size.height())};
    if (report.header.bitsPerSample > 0)
        words += QStringLiteral("%1 bits").arg(report.header.bitsPerSample);
    if (!report.header.colours.isEmpty())
        words += report.header.colours;
    return words.join(QStringLiteral(", "));
}

QString markText(const ResultMark &mark)
{
    QString text = QStringLiteral("by %1 %2, %3").arg(mark.program, mark.version, mark.method);
    if (!mark.options.isEmpty())
        text += u' ' + mark.options;
    if (!mark.sources.isEmpty())
        text += QStringLiteral(", from ") + mark.sources.join(QStringLiteral(", "));
    return text;
}

} // namespace

FileReport command_line::inspect(const QString &path)
{
    const file_names::ReadablePath readable(path);
    int descriptor = -1;
    const DecodeError error = regular_file::open(readable.path(), descriptor);
    if (error == DecodeError::Empty)
        return failure(path, ExitCode::BadData, picture::failure(error).reason);
    if (error != DecodeError::None)
        return failure(path, ExitCode::NoInput, picture::failure(error).reason);
    QFile file;
    file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    FileReport report;
    report.path = path;
    report.shot = brackets::readShot(path).shot;
    const std::optional<PictureHeader> header = headerOf(readable.path(), file, report.shot);
    if (!header)
        return failure(path, ExitCode::BadData, picture::failure(DecodeError::NotAPicture).reason);
    report.header = *header;
    report.metadata = metadata::read(path);
    report.rating = ratingIn(report.metadata.xmp);
    report.mark = result_mark::in(report.metadata.xmp);
    report.gainMap = gain_map::read(file);
    return report;
}

QString command_line::toJsonLine(const FileReport &report)
{
    const Shot &shot = report.shot;
    const QSize size = uprightSize(report);
    const auto text = [&](Directory directory, ExifTags::Tag tag) {
        return orNull(exifText(report, directory, tag));
    };
    const QJsonObject object{
        {QStringLiteral("file"), report.path},
        {QStringLiteral("format"), report.header.format},
        {QStringLiteral("width"), size.width()},
        {QStringLiteral("height"), size.height()},
        {QStringLiteral("bitsPerSample"), orNull(report.header.bitsPerSample)},
        {QStringLiteral("colours"), orNull(report.header.colours)},
        {QStringLiteral("make"), text(Directory::Picture, ExifTags::Make)},
        {QStringLiteral("model"), orNull(shot.model)},
        {QStringLiteral("lens"), text(Directory::Exposure, ExifTags::LensModel)},
        {QStringLiteral("takenAt"), orNull(momentOf(shot))},
        {QStringLiteral("exposureTime"), orNull(shot.exposureSeconds)},
        {QStringLiteral("fNumber"), orNull(shot.fNumber)},
        {QStringLiteral("iso"), orNull(shot.iso)},
        {QStringLiteral("exposureBias"),
         shot.exposureBias ? QJsonValue(*shot.exposureBias) : QJsonValue()},
        {QStringLiteral("orientation"), shot.orientation},
        {QStringLiteral("rating"),
         report.rating.isEmpty() ? QJsonValue() : QJsonValue(report.rating.toDouble())},
        {QStringLiteral("metadata"), kindsOf(report.metadata)},
        {QStringLiteral("merged"), toJson(report.mark)},
        {QStringLiteral("gainMap"), toJson(report.gainMap)},
    };
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QString command_line::toLines(const FileReport &report)
{
    QStringList lines{report.path};
    const auto add = [&lines](const char *name, const QString &value) {
        if (!value.isEmpty())
            lines += QStringLiteral("  %1 %2").arg(QLatin1String(name), -12).arg(value);
    };
    const Shot &shot = report.shot;
    const QString make = exifText(report, Directory::Picture, ExifTags::Make);
    add("picture", pixelsText(report));
    add("camera", shot.model.startsWith(make) ? shot.model : make + u' ' + shot.model);
    add("lens", exifText(report, Directory::Exposure, ExifTags::LensModel));
    add("taken at", momentOf(shot).replace(u'T', u' '));
    add("exposure", exposureText(shot));
    add("orientation", QString::number(shot.orientation));
    add("rating", report.rating);
    QStringList kinds;
    for (const QJsonValue &kind : kindsOf(report.metadata))
        kinds += kind.toString().toUpper();
    add("metadata", kinds.join(QStringLiteral(", ")));
    add("gain map", report.gainMap ? gainMapText(*report.gainMap) : QString());
    add("merged", report.mark ? markText(*report.mark) : QString());
    return lines.join(u'\n');
}
