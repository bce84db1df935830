#include "ContactSheet.h"

#include "RemainingTime.h"
#include "file_names.h"
#include "parallel_rows.h"
#include "picture_reader.h"

#include <QBuffer>
#include <QFileInfo>
#include <QJsonArray>
#include <QMap>
#include <QUrl>

#include <cmath>

namespace {

constexpr int kShotSide = 180;
constexpr int kResultSide = 480;

constexpr char kStyle[] = R"(
:root{--page:#f4f3f1;--card:#fff;--text:#22211f;--faint:#6d6a66;--line:#dddad5;--good:#3b7d4f;--bad:#b3372b;--doubt:#a86b12}
@media(prefers-color-scheme:dark){:root{--page:#191817;--card:#242321;--text:#ecebe8;--faint:#a09c96;--line:#3a3835;--good:#7fc493;--bad:#f08a7d;--doubt:#e2b15f}}
*{box-sizing:border-box}
body{margin:0 auto;max-width:1180px;padding:24px 16px 48px;background:var(--page);color:var(--text);font:15px/1.45 system-ui,"Noto Sans",sans-serif}
h1{font-size:1.5rem;margin:0}
h2{font-size:1.05rem;margin:0;overflow-wrap:anywhere}
.sum,.facts,figcaption{color:var(--faint);font-size:.85rem}
article{display:flex;flex-wrap:wrap;gap:16px;margin-top:16px;padding:16px;background:var(--card);border:1px solid var(--line);border-radius:10px;break-inside:avoid}
figure{margin:0}
img{display:block;max-width:100%;border-radius:5px}
.result{flex:0 1 340px}
.result img{width:100%}
.none{display:grid;place-items:center;min-height:160px;border:1px dashed var(--line);border-radius:5px}
.about{flex:1 1 440px;min-width:0}
.state{font-weight:600}
.merged,.unchanged{color:var(--good)}
.failed{color:var(--bad)}
.planned,.doubt{color:var(--doubt)}
.shots{display:flex;flex-wrap:wrap;gap:10px;margin:12px 0}
.shots figure{width:132px}
.shots img{width:132px;height:99px;object-fit:contain;background:var(--page)}
figcaption{overflow-wrap:anywhere}
meter{width:100%;height:.6rem}
ul{margin:8px 0 0;padding-left:1.2em}
table{width:100%;margin-top:8px;border-collapse:collapse;font-size:.85rem}
td{padding:3px 8px 3px 0;border-top:1px solid var(--line);overflow-wrap:anywhere;vertical-align:top}
section{margin-top:28px}
)";

QString escaped(const QString &text)
{
    return text.toHtmlEscaped();
}

/// With proper blanks and signs only; bytes of names that are no text become question marks.
QByteArray bytes(const QString &html)
{
    return html.toUtf8();
}

QString fileNameOf(const QString &path)
{
    return QFileInfo(path).fileName();
}

/// A JPEG file as the address of a picture; empty when the picture cannot be read.
QString pictureAddress(const QString &path, int side)
{
    const file_names::ReadablePath readable(path);
    ReadOptions how;
    how.side = side;
    const QImage image = picture::read(readable.path(), how).image;
    if (image.isNull())
        return {};
    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    buffer.open(QIODevice::WriteOnly);
    constexpr int kQuality = 80;
    const QImage small = image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    const bool isWritten = (image.width() > side || image.height() > side ? small : image)
                               .save(&buffer, "jpg", kQuality);
    return isWritten
               ? QStringLiteral("data:image/jpeg;base64,") + QString::fromLatin1(jpeg.toBase64())
               : QString();
}

QString imageElement(const QString &address, const QString &name)
{
    return address.isEmpty()
               ? QStringLiteral("<div class=\"none\">not readable</div>")
               : QStringLiteral("<img src=\"%1\" alt=\"%2\">").arg(address, escaped(name));
}

QString signedStops(double stops)
{
    const QString number = QString::number(std::abs(std::round(stops * 10) / 10));
    return (stops < 0   ? QStringLiteral("\u2212")
            : stops > 0 ? QStringLiteral("+")
                        : QString()) +
           number + QStringLiteral(" EV");
}

QString shutterText(double seconds)
{
    constexpr double kLong = 0.3;
    return seconds >= kLong ? QStringLiteral("%1 s").arg(std::round(seconds * 10) / 10)
                            : QStringLiteral("1/%1 s").arg(std::round(1 / seconds));
}

/// "1/60 s, -2 EV", as far as it is known.
QString exposureText(const QJsonObject &bracket, int shot)
{
    QStringList parts;
    const QJsonValue seconds = bracket.value(QLatin1String("exposureTime")).toArray().at(shot);
    if (seconds.toDouble() > 0)
        parts += shutterText(seconds.toDouble());
    const QJsonValue stops = bracket.value(QLatin1String("exposureBias")).toArray().at(shot);
    if (stops.isDouble())
        parts += signedStops(stops.toDouble());
    return parts.join(QStringLiteral(", "));
}

QString confidenceText(const QJsonObject &bracket, const QString &picture, int shot)
{
    if (bracket.value(QLatin1String("reference")).toString() == picture)
        return QStringLiteral("<br>the others are laid onto it");
    const QJsonValue confidence = bracket.value(QLatin1String("confidence")).toArray().at(shot);
    if (!confidence.isDouble())
        return {};
    const QString number = QString::number(confidence.toDouble(), 'f', 2);
    return QStringLiteral("<br><meter min=\"0\" max=\"1\" low=\"0.25\" high=\"0.5\" optimum=\"1\" "
                          "value=\"%1\">%1</meter> alignment %1")
        .arg(number);
}

QString shotFigure(const QJsonObject &bracket, int shot, const QString &address)
{
    const QString path = bracket.value(QLatin1String("pictures")).toArray().at(shot).toString();
    const QString name = fileNameOf(path);
    QString caption = escaped(name);
    const QString exposure = exposureText(bracket, shot);
    if (!exposure.isEmpty())
        caption += QStringLiteral("<br>") + exposure;
    caption += confidenceText(bracket, path, shot);
    return QStringLiteral("<figure>%1<figcaption>%2</figcaption></figure>\n")
        .arg(imageElement(address, name), caption);
}

QString secondsText(double milliseconds)
{
    return QStringLiteral("%1 s").arg(milliseconds / 1000, 0, 'f', 1);
}

/// "1.2 s: decode 0.3 s, align 0.5 s ..."
QString timesText(const QJsonObject &bracket)
{
    const double all = bracket.value(QLatin1String("milliseconds")).toDouble();
    if (all <= 0)
        return {};
    const QJsonObject steps = bracket.value(QLatin1String("steps")).toObject();
    QStringList parts;
    for (const char *step : {"decode", "align", "ghosts", "merge", "encode"}) {
        if (steps.contains(QLatin1String(step)))
            parts += QStringLiteral("%1 %2").arg(
                QLatin1String(step), secondsText(steps.value(QLatin1String(step)).toDouble()));
    }
    return parts.isEmpty()
               ? secondsText(all)
               : QStringLiteral("%1 (%2)").arg(secondsText(all), parts.join(QStringLiteral(", ")));
}

QString notesOf(const QJsonObject &bracket)
{
    QString items;
    for (const char *kind : {"warnings", "messages"}) {
        const QJsonArray texts = bracket.value(QLatin1String(kind)).toArray();
        for (const QJsonValue &text : texts)
            items += QStringLiteral("<li>%1</li>").arg(escaped(text.toString()));
    }
    return items.isEmpty() ? QString() : QStringLiteral("<ul class=\"doubt\">%1</ul>\n").arg(items);
}

/// The result with a link to the file, which lies beside the page.
QString resultFigure(const QString &output, const QString &address)
{
    if (address.isEmpty())
        return QStringLiteral(
            "<figure class=\"result\"><div class=\"none\">no result</div></figure>\n");
    const QString name = fileNameOf(output);
    const QString link = QString::fromLatin1(file_names::toBytes(name).toPercentEncoding());
    return QStringLiteral("<figure class=\"result\"><a href=\"./%1\">%2</a></figure>\n")
        .arg(link, imageElement(address, name));
}

/// The small pictures of one bracket: its result, then its shots.
std::vector<QString> addressesOf(const QJsonObject &bracket)
{
    const QJsonArray pictures = bracket.value(QLatin1String("pictures")).toArray();
    std::vector<QString> addresses(size_t(pictures.size()) + 1);
    parallel::each(int(addresses.size()), [&](int i) {
        addresses[size_t(i)] =
            i == 0 ? pictureAddress(bracket.value(QLatin1String("output")).toString(), kResultSide)
                   : pictureAddress(pictures.at(i - 1).toString(), kShotSide);
    });
    return addresses;
}

QByteArray articleOf(const QJsonObject &bracket)
{
    const std::vector<QString> addresses = addressesOf(bracket);
    const QString output = bracket.value(QLatin1String("output")).toString();
    const QString status = escaped(bracket.value(QLatin1String("status")).toString());
    const QString times = timesText(bracket);
    QString shots;
    for (size_t i = 1; i < addresses.size(); ++i)
        shots += shotFigure(bracket, int(i) - 1, addresses[i]);
    return bytes(QStringLiteral("<article>\n%1<div class=\"about\">\n<h2>%2</h2>\n"
                                "<div class=\"facts\"><span class=\"state %3\">%3</span>%4</div>\n")
                     .arg(resultFigure(output, addresses[0]), escaped(fileNameOf(output)), status,
                          times.isEmpty() ? QString() : QStringLiteral(" in ") + times)) +
           bytes(QStringLiteral("<div class=\"shots\">\n%1</div>\n").arg(shots)) +
           bytes(notesOf(bracket)) + "</div>\n</article>\n";
}

/// "12 brackets of 38 shots: 11 merged, 1 failed"
QString summaryOf(const QList<QJsonObject> &brackets)
{
    QMap<QString, int> counts;
    qsizetype shots = 0;
    for (const QJsonObject &bracket : brackets) {
        ++counts[bracket.value(QLatin1String("status")).toString()];
        shots += bracket.value(QLatin1String("pictures")).toArray().size();
    }
    QStringList parts;
    for (auto status = counts.cbegin(); status != counts.cend(); ++status)
        parts += QStringLiteral("%1 %2").arg(status.value()).arg(escaped(status.key()));
    return QStringLiteral("%1 brackets of %2 shots: %3")
        .arg(brackets.size())
        .arg(shots)
        .arg(parts.isEmpty() ? QStringLiteral("none") : parts.join(QStringLiteral(", ")));
}

} // namespace

QString ContactSheet::pathIn(const QString &folder)
{
    return folder + QStringLiteral("/veskhdr-batch.html");
}

QByteArray ContactSheet::head() const
{
    return bytes(QStringLiteral(
                     "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                     "<meta name=\"viewport\" content=\"width=device-width, "
                     "initial-scale=1\">\n<title>%1</title>\n<style>")
                     .arg(escaped(title))) +
           kStyle +
           bytes(QStringLiteral("</style>\n</head>\n<body>\n<header>\n<h1>%1</h1>\n"
                                "<p class=\"sum\">%2</p>\n</header>\n<main>\n")
                     .arg(escaped(title), summaryOf(brackets)));
}

QByteArray ContactSheet::foot() const
{
    QString rows;
    for (const LeftOut &left : leftOut)
        rows += QStringLiteral("<tr><td>%1</td><td>%2</td></tr>\n")
                    .arg(escaped(left.path), escaped(left.reason));
    const QString section =
        rows.isEmpty()
            ? QString()
            : QStringLiteral("<section>\n<h2>Left out</h2>\n<table>\n%1</table>\n</section>\n")
                  .arg(rows);
    return bytes(section) + "</main>\n</body>\n</html>\n";
}

QString ContactSheet::write(const QString &path, OutputFile::TemporaryNameObserver observer) const
{
    OutputFile file(path, true, std::move(observer));
    if (!file.open())
        return file.reason();
    file.device().write(head());
    for (const QJsonObject &bracket : brackets)
        file.device().write(articleOf(bracket));
    file.device().write(foot());
    return file.publish() ? QString() : file.reason();
}
