// Makes a bracket of photographs to try the merge on; see --help.

#include "parallel_rows.h"
#include "sample_bracket.h"

#include <QBuffer>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTextStream>

#include <cmath>
#include <optional>

namespace {

constexpr int kUsageError = 64;
constexpr int kWriteError = 74;
constexpr int kMaxSide = 10000;
constexpr int kMaxShots = 99;
constexpr int kMaxOffset = 1000;

struct Options
{
    sample::BracketSettings bracket;
    QString folder;
    QString format;
    bool isMotionGiven = false;
    int threads = 0; ///< 0: one per core; does not change any pixel
    bool asJson = false;
};

void report(const QString &message)
{
    QTextStream(stderr) << QStringLiteral("sample_bracket: ") << message << '\n';
}

std::optional<QSize> parseSize(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$"));
    const QRegularExpressionMatch match = form.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    if (!match.hasMatch() || size.isEmpty() || size.width() > kMaxSide || size.height() > kMaxSide)
        return std::nullopt;
    return size;
}

std::optional<QVector<QPoint>> parseOffsets(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^\\s*(-?\\d{1,4}),(-?\\d{1,4})\\s*$"));
    QVector<QPoint> offsets;
    for (const QString &part : text.split(QLatin1Char(';'))) {
        const QRegularExpressionMatch match = form.match(part);
        const QPoint offset(match.captured(1).toInt(), match.captured(2).toInt());
        if (!match.hasMatch() || std::abs(offset.x()) > kMaxOffset ||
            std::abs(offset.y()) > kMaxOffset)
            return std::nullopt;
        offsets.append(offset);
    }
    return offsets;
}

std::optional<sample::Motion> parseMotion(const QString &text)
{
    using sample::Motion;
    constexpr std::pair<const char *, Motion> kMotions[] = {{"none", Motion::None},
                                                            {"shift", Motion::Shift},
                                                            {"hand", Motion::Hand},
                                                            {"strong", Motion::Strong}};
    for (const auto &[word, motion] : kMotions) {
        if (text == QLatin1String(word))
            return motion;
    }
    return std::nullopt;
}

/// The options, or nothing after a message about what is wrong with them.
std::optional<Options> parseOptions(const QCoreApplication &app)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Photographs a rendered scene of high dynamic range at several exposures."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("folder"),
                                 QStringLiteral("where the files go; made when missing"));
    const QCommandLineOption size(QStringLiteral("size"),
                                  QStringLiteral("Size of the pictures, 1800x1200 if not given."),
                                  QStringLiteral("WxH"), QStringLiteral("1800x1200"));
    const QCommandLineOption shots(QStringLiteral("shots"),
                                   QStringLiteral("Number of shots, 5 if not given."),
                                   QStringLiteral("N"), QStringLiteral("5"));
    const QCommandLineOption seed(QStringLiteral("seed"),
                                  QStringLiteral("Seed of sensor noise and trembling hand."),
                                  QStringLiteral("N"), QStringLiteral("1"));
    const QCommandLineOption shifts(
        QStringLiteral("shifts"),
        QStringLiteral("Where the scene stands in each shot, in pixels: \"0,0;5,-3;...\"."),
        QStringLiteral("X,Y;..."));
    const QCommandLineOption motion(
        QStringLiteral("motion"),
        QStringLiteral("How the camera moves between the shots: none, shift (by whole pixels; so "
                       "it is if not given), hand or strong (it is turned and tilted). The file "
                       "motion.json says by how much."),
        QStringLiteral("how"), QStringLiteral("shift"));
    const QCommandLineOption format(QStringLiteral("format"), QStringLiteral("jpg or png."),
                                    QStringLiteral("name"), QStringLiteral("jpg"));
    const QCommandLineOption threads(QStringLiteral("threads"), QStringLiteral("0: one per core."),
                                     QStringLiteral("N"), QStringLiteral("0"));
    const QCommandLineOption moving(
        QStringLiteral("moving"),
        QStringLiteral("Somebody walks through the room; sample_moving.png gets where: white the "
                       "person at any moment, grey shadows and mirror images."));
    const QCommandLineOption later(
        QStringLiteral("later"),
        QStringLiteral("So much later in the day, if another bracket is to follow."),
        QStringLiteral("minutes"), QStringLiteral("0"));
    const QCommandLineOption json(QStringLiteral("json"),
                                  QStringLiteral("Describe the files in JSON."));
    parser.addOptions({size, shots, seed, shifts, motion, format, threads, moving, later, json});
    parser.process(app);

    const auto refuse = [](const QString &message) -> std::optional<Options> {
        report(message);
        return std::nullopt;
    };
    Options options;
    if (parser.positionalArguments().size() != 1)
        return refuse(QStringLiteral("give one folder for the files (see --help)"));
    options.folder = parser.positionalArguments().constFirst();
    const std::optional<QSize> pictureSize = parseSize(parser.value(size));
    if (!pictureSize)
        return refuse(QStringLiteral("--size: not a size like 1800x1200: ") + parser.value(size));
    options.bracket.size = *pictureSize;
    const int count = parser.value(shots).toInt();
    if (count < 1 || count > kMaxShots)
        return refuse(QStringLiteral("--shots: not a number from 1 to 99: ") + parser.value(shots));
    options.bracket.stops = sample::evenStops(count);
    if (parser.isSet(shifts)) {
        const std::optional<QVector<QPoint>> offsets = parseOffsets(parser.value(shifts));
        if (!offsets || offsets->size() != count)
            return refuse(QStringLiteral("--shifts: not one pair of pixels for each shot: ") +
                          parser.value(shifts));
        options.bracket.offsets = *offsets;
    }
    const std::optional<sample::Motion> how = parseMotion(parser.value(motion));
    if (!how || (parser.isSet(motion) && parser.isSet(shifts)))
        return refuse(
            QStringLiteral("--motion: not none, shift, hand or strong, or with --shifts: ") +
            parser.value(motion));
    options.bracket.motion = *how;
    options.isMotionGiven = parser.isSet(motion);
    bool isNumber = false;
    options.bracket.seed = parser.value(seed).toUInt(&isNumber);
    if (!isNumber)
        return refuse(QStringLiteral("--seed: not a number: ") + parser.value(seed));
    options.threads = parser.value(threads).toInt(&isNumber);
    if (!isNumber || options.threads < 0)
        return refuse(QStringLiteral("--threads: not a number: ") + parser.value(threads));
    options.format = parser.value(format);
    if (options.format != QLatin1String("jpg") && options.format != QLatin1String("png"))
        return refuse(QStringLiteral("--format: neither jpg nor png: ") + options.format);
    options.bracket.minutesLater = parser.value(later).toInt(&isNumber);
    if (!isNumber || options.bracket.minutesLater < 0)
        return refuse(QStringLiteral("--later: not a number: ") + parser.value(later));
    options.bracket.hasWalker = parser.isSet(moving);
    options.asJson = parser.isSet(json);
    return options;
}

QString pathOf(const Options &options, int index)
{
    const QString name =
        QStringLiteral("sample_%1.%2").arg(index + 1, 2, 10, QLatin1Char('0')).arg(options.format);
    return QDir(options.folder).filePath(name);
}

bool write(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    if (!bytes.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() &&
        file.commit())
        return true;
    report(QStringLiteral("cannot write %1: %2").arg(path, file.errorString()));
    return false;
}

bool writeAll(const Options &options, const QVector<sample::Shot> &shots)
{
    if (!QDir().mkpath(options.folder)) {
        report(QStringLiteral("cannot make the folder ") + options.folder);
        return false;
    }
    std::vector<QByteArray> files(static_cast<size_t>(shots.size()));
    parallel::each(int(shots.size()), [&](int i) {
        files[static_cast<size_t>(i)] = sample::encoded(shots[i], options.format.toLatin1());
    });
    for (int i = 0; i < shots.size(); ++i) {
        if (!write(pathOf(options, i), files[static_cast<size_t>(i)]))
            return false;
    }
    return true;
}

/// What moved, when something did.
bool writeChanged(const Options &options, const QImage &changed)
{
    if (changed.isNull())
        return true;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    changed.save(&buffer, "png");
    return write(QDir(options.folder).filePath(QStringLiteral("sample_moving.png")), bytes);
}

/// Onto the first shot, row by row.
QJsonArray matrixOf(const sample::Shot &shot)
{
    QJsonArray rows;
    for (size_t row = 0; row < 3; ++row)
        rows.append(QJsonArray{shot.toFirst[3 * row], shot.toFirst[3 * row + 1],
                               shot.toFirst[3 * row + 2]});
    return rows;
}

/// The true matrix of each file.
bool writeMotion(const Options &options, const QVector<sample::Shot> &shots)
{
    if (!options.isMotionGiven)
        return true;
    QJsonArray list;
    for (int i = 0; i < shots.size(); ++i)
        list.append(QJsonObject{
            {QStringLiteral("file"), QFileInfo(pathOf(options, i)).fileName()},
            {QStringLiteral("matrix"), matrixOf(shots[i])},
        });
    const QJsonObject object{{QStringLiteral("shots"), list}};
    return write(QDir(options.folder).filePath(QStringLiteral("motion.json")),
                 QJsonDocument(object).toJson());
}

QJsonObject describe(const Options &options, int index, const sample::Shot &shot)
{
    return {{QStringLiteral("path"), pathOf(options, index)},
            {QStringLiteral("stops"), shot.exposure.stops},
            {QStringLiteral("exposureTime"), shot.exposure.exposureTime},
            {QStringLiteral("offset"), QJsonArray{shot.offset.x(), shot.offset.y()}},
            {QStringLiteral("matrix"), matrixOf(shot)}};
}

void printJson(const Options &options, const QVector<sample::Shot> &shots, qint64 elapsedMs)
{
    QJsonArray list;
    for (int i = 0; i < shots.size(); ++i)
        list.append(describe(options, i, shots[i]));
    const QJsonObject object{{QStringLiteral("size"), QJsonArray{options.bracket.size.width(),
                                                                 options.bracket.size.height()}},
                             {QStringLiteral("seed"), static_cast<qint64>(options.bracket.seed)},
                             {QStringLiteral("shots"), list},
                             {QStringLiteral("milliseconds"), elapsedMs}};
    QTextStream(stdout) << QJsonDocument(object).toJson();
}

QString shutterText(double seconds)
{
    return seconds < 1.0 ? QStringLiteral("1/%1 s").arg(std::lround(1.0 / seconds))
                         : QStringLiteral("%1 s").arg(seconds);
}

void printText(const Options &options, const QVector<sample::Shot> &shots)
{
    QTextStream out(stdout);
    for (int i = 0; i < shots.size(); ++i) {
        const sample::Shot &shot = shots[i];
        out << QStringLiteral("%1  %2 EV  %3  scene at (%4, %5)\n")
                   .arg(pathOf(options, i))
                   .arg(shot.exposure.stops, 4, 'f', 1)
                   .arg(shutterText(shot.exposure.exposureTime), 8)
                   .arg(shot.offset.x())
                   .arg(shot.offset.y());
    }
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    const std::optional<Options> options = parseOptions(app);
    if (!options)
        return kUsageError;
    parallel::setThreadLimit(options->threads);
    QElapsedTimer timer;
    timer.start();
    QImage changed;
    const QVector<sample::Shot> shots = sample::photographBracket(options->bracket, &changed);
    if (!writeAll(*options, shots) || !writeChanged(*options, changed) ||
        !writeMotion(*options, shots))
        return kWriteError;
    if (options->asJson)
        printJson(*options, shots, timer.elapsed());
    else
        printText(*options, shots);
    return 0;
}
