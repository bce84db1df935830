#include "ShotCard.h"

#include <cmath>
#include <limits>

namespace {

constexpr double kLost = std::numeric_limits<double>::quiet_NaN();

std::vector<double> row(int count, double first, double step)
{
    std::vector<double> stops;
    for (int i = 0; i < count; ++i)
        stops.push_back(first + i * step);
    return stops;
}

} // namespace

/// One function for each pattern.
struct Patterns
{
    using Style = ShotCard::Style;
    struct Pattern
    {
        const char *name;
        void (*shoot)(ShotCard &card);
    };
    static const std::vector<Pattern> all;

    static Style byHand(double least = 3, double most = 8)
    {
        return {Style::By::Hand, least, most, 0.004, 0};
    }
    static Style byCamera() { return {Style::By::CameraWithoutBias, 0.15, 0.4, 0.004, 0}; }
    static Style unknown() { return {Style::By::Unknown, 0.3, 0.9, 0.004, 0}; }

    template <int count>
    static void repeated(ShotCard &card, const std::vector<double> &stops, double pause,
                         bool sameScene)
    {
        for (int i = 0; i < count; ++i) {
            card.take(stops, {});
            card.wait(pause, 2 * pause);
            if (!sameScene)
                card.newScene();
        }
    }
};

const std::vector<Patterns::Pattern> Patterns::all = {
    {"three, dark to bright", [](ShotCard &c) { c.take({-2, 0, 2}, {}); }},
    {"three, middle first", [](ShotCard &c) { c.take({0, -2, 2}, {}); }},
    {"three, bright first", [](ShotCard &c) { c.take({0, 2, -2}, {}); }},
    {"three, bright to dark", [](ShotCard &c) { c.take({2, 0, -2}, {}); }},
    {"three by a third", [](ShotCard &c) { c.take({0, -0.33, 0.33}, {}); }},
    {"five, zig-zag", [](ShotCard &c) { c.take({0, -1, 1, -2, 2}, {}); }},
    {"five, other zig-zag", [](ShotCard &c) { c.take({0, 1, -1, 2, -2}, {}); }},
    {"five, in order", [](ShotCard &c) { c.take({-2, -1, 0, 1, 2}, {}); }},
    {"seven in thirds", [](ShotCard &c) { c.take(row(7, -1, 1.0 / 3), {}); }},
    {"seven, zig-zag", [](ShotCard &c) { c.take({0, -1, 1, -2, 2, -3, 3}, {}); }},
    {"nine, in order", [](ShotCard &c) { c.take(row(9, -4, 1), {}); }},
    {"nine, zig-zag", [](ShotCard &c) { c.take({0, -1, 1, -2, 2, -3, 3, -4, 4}, {}); }},
    {"moved by a compensation", [](ShotCard &c) { c.take({-3, -1, 1}, {}); }},
    {"uneven biases", [](ShotCard &c) { c.take({2, 1.5, 1, .3, -.5, -1}, byHand(2, 6)); }},
    {"by hand, rising", [](ShotCard &c) { c.take(row(5, -2, 1), byHand()); }},
    {"by hand, falling", [](ShotCard &c) { c.take(row(6, 5, -2), byHand()); }},
    {"by hand, thirteen", [](ShotCard &c) { c.take(row(13, -4, 2.0 / 3), byHand()); }},
    {"by hand, fourteen falling", [](ShotCard &c) { c.take(row(14, 4, -2.0 / 3), byHand()); }},
    {"by hand, slowly", [](ShotCard &c) { c.take(row(5, 0, 1), byHand(7, 27)); }},
    {"by hand, uneven", [](ShotCard &c) { c.take({0, 1, 3, 4, 6.3}, byHand()); }},
    {"camera without biases", [](ShotCard &c) { c.take({0, -2, 2}, byCamera()); }},
    {"camera without biases, five", [](ShotCard &c) { c.take({0, -1, 1, -2, 2}, byCamera()); }},
    {"mode not told", [](ShotCard &c) { c.take({-2, 0, 2}, unknown()); }},
    {"mode not told, uneven", [](ShotCard &c) { c.take({-3, -2, 0, 1, 3}, unknown()); }},
    {"long exposures", [](ShotCard &c) {
         c.take({0, -2, 2}, {Style::By::Bias, 0.3, 1, 8, 0});
     }},
    {"middle one lost", [](ShotCard &c) { c.take({-2, -1, kLost, 1, 2}, {}); }},
    {"one of the zig-zag lost", [](ShotCard &c) { c.take({0, -1, 1, kLost, 2}, {}); }},
    {"one too many", [](ShotCard &c) { c.take({-2, -1, -1, 0, 1, 2}, {}); }},
    {"interrupted", [](ShotCard &c) {
         c.take({0, -2}, {}, false);
         c.wait(5, 20);
         c.take({0, -2, 2}, {});
     }},
    {"two of one scene", [](ShotCard &c) { repeated<2>(c, {0, -2, 2}, 0.5, true); }},
    {"three of one scene, at once", [](ShotCard &c) { repeated<3>(c, {-1, 0, 1}, 0.2, true); }},
    {"three, then five", [](ShotCard &c) {
         c.take({-2, 0, 2}, {});
         c.wait(1, 3);
         c.take({-4, -2, 0, 2, 4}, {});
     }},
    {"panorama of brackets", [](ShotCard &c) { repeated<4>(c, {0, -2, 2}, 1.5, false); }},
    {"burst", [](ShotCard &c) { c.take(std::vector<double>(10, 0), {}, false); }},
    {"panorama", [](ShotCard &c) {
         for (int i = 0; i < 6; ++i) {
             c.take({0}, byHand(), false);
             c.wait(1, 3);
             c.newScene();
         }
     }},
    {"panorama, metered each", [](ShotCard &c) {
         double stops = 0;
         for (int i = 0; i < 6; ++i) {
             Style metered;
             metered.exposureSeconds = 0.004 * std::exp2(stops);
             c.take({0}, metered, false);
             stops += c.between(-0.7, 0.7);
             c.wait(1, 3);
             c.newScene();
         }
     }},
    {"burst, metered each", [](ShotCard &c) {
         c.take(std::vector<double>(8, 0), {Style::By::Bias, 0.1, 0.2, 0.004, 0.2}, false);
     }},
    {"singles", [](ShotCard &c) {
         for (int i = 0; i < 5; ++i) {
             Style metered;
             metered.exposureSeconds = 0.01 * std::exp2(c.between(-4, 4));
             c.take({std::round(c.between(-2.5, 2.5)) / 3}, metered, false);
             c.wait(5, 60);
             c.newScene();
         }
     }},
    {"singles by hand", [](ShotCard &c) {
         for (int i = 0; i < 8; ++i) {
             c.take({std::round(c.between(-9, 9)) / 3}, byHand(), false);
             c.wait(2, 40);
             c.newScene();
         }
     }},
    {"two scenes by hand, soon after each other", [](ShotCard &c) {
         c.take(row(5, -2, 1), byHand());
         c.wait(2, 5);
         c.newScene();
         c.take(row(6, -2, 1), byHand());
     }},
    {"two scenes by hand, there and back", [](ShotCard &c) {
         c.take(row(5, -2, 1), byHand());
         c.wait(2, 5);
         c.newScene();
         c.take(row(5, 2, -1), byHand());
     }},
    {"two scenes by hand, going on", [](ShotCard &c) {
         c.take(row(4, -4, 1), byHand());
         c.wait(2, 5);
         c.newScene();
         c.take(row(4, 0, 1), byHand());
     }},
    {"single just before and after", [](ShotCard &c) {
         c.take({0}, {}, false);
         c.wait(1, 4);
         c.take({0, -2, 2}, {});
         c.wait(1, 4);
         c.take({0}, {}, false);
     }},
    {"upright", [](ShotCard &c) {
         c.camera.orientation = 6;
         c.camera.size.transpose();
         c.take({0, -2, 2}, {});
         c.camera.size.transpose();
         c.camera.orientation = 1;
     }},
    {"zoomed in between", [](ShotCard &c) {
         c.take({0, -2, 2}, {});
         c.camera.focalLength = 85;
         c.wait(0.5, 1);
         c.take({0, -2, 2}, {});
         c.camera.focalLength = 50;
     }},
    {"two cameras at once", [](ShotCard &c) {
         const QDateTime begin = c.now;
         const QString own = c.camera.model;
         c.take({0, -2, 2}, {});
         c.camera.model = QStringLiteral("Other camera");
         c.now = begin.addMSecs(100);
         c.take({-1, 0, 1}, {});
         c.camera.model = own;
     }},
};

ShotCard::ShotCard(quint32 seed, Clock kindOfClock)
    : random(seed)
    , clock(kindOfClock)
    , now(QDate(2026, 10, 25), QTime(1, 0), Qt::UTC)
{
    camera.model = QStringLiteral("Camera");
}

int ShotCard::patternCount()
{
    return int(Patterns::all.size());
}

void ShotCard::fill(int count)
{
    for (int round = 0; int(shots.size()) < count; ++round) {
        const int next = round < patternCount() ? round : pick(patternCount());
        pattern = QString::fromLatin1(Patterns::all[size_t(next)].name);
        newScene();
        Patterns::all[size_t(next)].shoot(*this);
        if (clock == Clock::SetBackInBetween && int(shots.size()) > count / 2)
            setBack = 3600;
        wait(pick(4) == 0 ? 2 : 20, 400);
    }
}

double ShotCard::between(double least, double most)
{
    return least + (most - least) * random.generateDouble();
}

int ShotCard::pick(int count)
{
    return int(random.bounded(count));
}

QDateTime ShotCard::told(const QDateTime &time) const
{
    QDateTime shown = time.addSecs(-setBack);
    const QTime clockTime = shown.time();
    if (clock == Clock::WholeSeconds)
        shown.setTime(QTime(clockTime.hour(), clockTime.minute(), clockTime.second()));
    if (clock == Clock::WholeMinutes)
        shown.setTime(QTime(clockTime.hour(), clockTime.minute()));
    return shown;
}

void ShotCard::shoot(double stops, const Style &style, QStringList *bracket)
{
    Shot shot;
    shot.path = QStringLiteral("/card/IMG_%1.JPG").arg(++number, 4, 10, QLatin1Char('0'));
    if (std::isnan(stops))
        return;
    shot.model = camera.model;
    shot.lens = camera.lens;
    shot.focalLength = camera.focalLength;
    shot.size = camera.size;
    shot.orientation = camera.orientation;
    shot.takenAt = told(now);
    const double light = stops + between(-style.noise, style.noise);
    // Shutter times are rounded to a fraction of a third of a stop.
    shot.exposureSeconds = style.exposureSeconds * std::exp2(light + between(-0.04, 0.04));
    shot.fNumber = 8;
    shot.iso = 200;
    shot.exposureBias = style.by == Style::By::Bias ? std::round(stops * 100) / 100 : 0;
    shot.mode = style.by == Style::By::Bias                ? Shot::Exposure::Automatic
                : style.by == Style::By::Hand              ? Shot::Exposure::ByHand
                : style.by == Style::By::CameraWithoutBias ? Shot::Exposure::CameraBracket
                                                           : Shot::Exposure::Unknown;
    now = now.addMSecs(qint64(1000 * (shot.exposureSeconds + between(style.least, style.most))));
    sceneOf.insert(shot.path, scene);
    patternOf.insert(shot.path, pattern);
    if (bracket)
        *bracket += shot.path;
    shots.push_back(shot);
}

void ShotCard::take(const std::vector<double> &stops, const Style &style, bool isBracket)
{
    QStringList bracket;
    for (const double stop : stops)
        shoot(stop, style, &bracket);
    if (isBracket)
        brackets.push_back(bracket);
}

brackets::Scene ShotCard::compare(const Shot &one, const Shot &other) const
{
    return sceneOf.value(one.path) == sceneOf.value(other.path) ? brackets::Scene::Same
                                                                : brackets::Scene::Other;
}
