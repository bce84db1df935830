#include "sample_bracket.h"

#include "noise.h"
#include "parallel_rows.h"
#include "sample_camera.h"
#include "walk.h"

#include <QBuffer>
#include <QImageWriter>

#include <algorithm>
#include <cmath>

namespace sample {

namespace {

/// Shutter time at 0 stops, seconds.
constexpr double kBaseTime = 1.0 / 128.0;
constexpr int kJpegQuality = 96;
constexpr int kPngQuality = 80;

/// An alignment finds shifts below a 32nd to a 64th of the smaller side between two shots; each
/// shot strays by less than half of that.
int largestTremble(QSize size)
{
    return std::min(size.width(), size.height()) / 128;
}

QVector<QPoint> offsetsOf(const BracketSettings &settings)
{
    QVector<QPoint> offsets = settings.offsets;
    const int reach = settings.motion == Motion::Shift ? largestTremble(settings.size) : 0;
    const auto tremble = [&](int draw) {
        const std::uint64_t key = hashed(settings.seed) + static_cast<std::uint64_t>(draw);
        return static_cast<int>(std::floor(uniform(key) * static_cast<float>(2 * reach + 1))) -
               reach;
    };
    for (int i = int(offsets.size()); i < settings.stops.size(); ++i)
        offsets.append(i == 0 ? QPoint() : QPoint(tremble(2 * i), tremble(2 * i + 1)));
    return offsets;
}

int marginFor(const QVector<QPoint> &offsets)
{
    int margin = 0;
    for (const QPoint offset : offsets)
        margin = std::max({margin, std::abs(offset.x()), std::abs(offset.y())});
    return margin;
}

/// A burst: the next shot starts a third of a second after the last one has ended.
QVector<ExposureData> exposuresOf(const QVector<double> &stops, int minutesLater)
{
    QDateTime time =
        QDateTime(QDate(2024, 6, 15), QTime(10, 42, 7, 120)).addSecs(60 * minutesLater);
    QVector<ExposureData> exposures;
    for (const double stop : stops) {
        ExposureData exposure;
        exposure.stops = stop;
        exposure.exposureTime = kBaseTime * std::exp2(stop);
        exposure.takenAt = time;
        exposures.append(exposure);
        time = time.addMSecs(330 + std::lround(1000.0 * exposure.exposureTime));
    }
    return exposures;
}

/// The scene, once when nothing moves.
std::vector<RadianceImage> momentsOf(const BracketSettings &settings, int margin,
                                     const QVector<QPoint> &offsets, QImage *changed)
{
    if (!settings.hasWalker || offsets.isEmpty())
        return {renderRoom(settings.size.width(), settings.size.height(), margin)};
    const QPoint origin = QPoint(margin, margin) - offsets.first();
    Walk walk = renderWalk(settings.size, margin, int(offsets.size()), origin);
    if (changed != nullptr)
        *changed = walk.changed;
    return std::move(walk.moments);
}

} // namespace

QVector<double> evenStops(int shots)
{
    const double step = std::min(2.0, 8.0 / std::max(1, shots - 1));
    QVector<double> stops;
    for (int i = 0; i < shots; ++i)
        stops.append(step * (i - 0.5 * (shots - 1)));
    return stops;
}

namespace {

bool isTurned(const BracketSettings &settings)
{
    return settings.motion == Motion::Hand || settings.motion == Motion::Strong;
}

/// From each shot onto the first.
QVector<Homography> mapsOf(const BracketSettings &settings, const QVector<QPoint> &offsets)
{
    if (isTurned(settings))
        return cameraMotions(settings.motion, int(settings.stops.size()), settings.size,
                             settings.seed);
    QVector<Homography> maps;
    for (int i = 0; i < settings.stops.size(); ++i)
        maps.append(moved(offsets[0] - offsets[i]));
    return maps;
}

} // namespace

QVector<Shot> photographBracket(const BracketSettings &settings, QImage *changed)
{
    constexpr int kAround = 2; // pixels that the interpolation reads beyond a place
    const QVector<QPoint> offsets = offsetsOf(settings);
    const QVector<Homography> maps = mapsOf(settings, offsets);
    const QVector<ExposureData> exposures = exposuresOf(settings.stops, settings.minutesLater);
    const bool turns = isTurned(settings);
    const int margin = turns ? reachOf(maps, settings.size) + kAround : marginFor(offsets);
    const std::vector<RadianceImage> moments = momentsOf(settings, margin, offsets, changed);
    QVector<Shot> shots(settings.stops.size());
    Shot *shot = shots.data();
    parallel::each(int(shots.size()), [&](int i) {
        const QPoint origin = turns ? QPoint() : QPoint(margin, margin) - offsets[i];
        const auto noiseSeed =
            static_cast<std::uint32_t>(hashed(settings.seed) + static_cast<std::uint64_t>(i));
        const RadianceImage &moment = moments[std::min(size_t(i), moments.size() - 1)];
        const RadianceImage seen =
            turns ? seenBy(moment, margin, maps[i], settings.size) : RadianceImage();
        shot[i] = {
            photograph(turns ? seen : moment, origin, settings.size, settings.stops[i], noiseSeed),
            offsets[i], maps[i], exposures[i]};
    });
    return shots;
}

QByteArray encoded(const Shot &shot, const QByteArray &format)
{
    if (format != "jpg" && format != "png")
        return {};
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, format);
    writer.setQuality(format == "jpg" ? kJpegQuality : kPngQuality);
    if (!writer.write(shot.picture))
        return {};
    return withExif(bytes, exifBlock(shot.exposure, shot.picture.size()));
}

} // namespace sample
