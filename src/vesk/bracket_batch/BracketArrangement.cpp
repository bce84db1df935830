#include "BracketArrangement.h"

#include <natural_order.h>

#include <QMap>
#include <QSet>

#include <algorithm>
#include <limits>

namespace {

using Shots = BracketArrangement::Shots;

constexpr size_t kFewestShots = 2;

qint64 timeOf(const Shot &shot)
{
    return shot.takenAt.isValid() ? shot.takenAt.toMSecsSinceEpoch()
                                  : std::numeric_limits<qint64>::min();
}

void putInOrder(Shots &shots)
{
    std::stable_sort(shots.begin(), shots.end(), [](const Shot &one, const Shot &other) {
        return timeOf(one) != timeOf(other) ? timeOf(one) < timeOf(other)
                                            : brackets::isBeforeNaturally(one.path, other.path);
    });
}

void append(Shots &shots, const Shots &others)
{
    shots.insert(shots.end(), others.begin(), others.end());
}

/// Takes the shots at these places, which are in order, out of the others.
Shots takeOut(Shots &shots, const QList<int> &places)
{
    Shots taken;
    for (auto place = places.crbegin(); place != places.crend(); ++place) {
        taken.push_back(std::move(shots[size_t(*place)]));
        shots.erase(shots.begin() + *place);
    }
    return taken;
}

} // namespace

BracketArrangement::BracketArrangement(const QList<Shots> &found, const Shots &others)
    : brackets(found)
    , loose(others)
{
    putInOrder(loose);
}

const Shots &BracketArrangement::shotsOf(int bracket) const
{
    return bracket < bracketCount() ? brackets[bracket] : loose;
}

bool BracketArrangement::canJoin(const QList<Place> &places) const
{
    return std::any_of(places.begin(), places.end(), [&](const Place &place) {
        return place.bracket != places.first().bracket ||
               (isLoose(place) && place.shot != places.first().shot);
    });
}

int BracketArrangement::join(const QList<Place> &places)
{
    QMap<int, QList<int>> shotsIn;
    for (const Place &place : places)
        shotsIn[place.bracket] += place.shot;
    Shots joined;
    for (auto part = shotsIn.begin(); part != shotsIn.end(); ++part) {
        std::sort(part->begin(), part->end());
        Shots &from = part.key() < bracketCount() ? brackets[part.key()] : loose;
        append(joined, takeOut(from, part.value()));
    }
    putInOrder(joined);
    const QString first = joined.front().path;
    brackets.insert(shotsIn.firstKey(), joined);
    dissolveSmallOnes();
    const auto made = std::find_if(brackets.begin(), brackets.end(),
                                   [&](const Shots &shots) { return shots.front().path == first; });
    return int(made - brackets.begin());
}

bool BracketArrangement::canSplit(const Place &place) const
{
    return !isLoose(place) && place.shot > 0;
}

void BracketArrangement::split(const Place &place)
{
    Shots &whole = brackets[place.bracket];
    const auto cut = whole.begin() + place.shot;
    const Shots rest(cut, whole.end());
    whole.erase(cut, whole.end());
    brackets.insert(place.bracket + 1, rest);
    dissolveSmallOnes();
}

void BracketArrangement::takeOutAll(const QStringList &paths, QHash<QString, Shot> &taken)
{
    const QSet<QString> wanted(paths.begin(), paths.end());
    const auto takeFrom = [&](Shots &shots) {
        const auto rest =
            std::stable_partition(shots.begin(), shots.end(), [&wanted](const Shot &shot) {
                return !wanted.contains(shot.path);
            });
        std::for_each(rest, shots.end(), [&](const Shot &shot) { taken.insert(shot.path, shot); });
        shots.erase(rest, shots.end());
    };
    std::for_each(brackets.begin(), brackets.end(), takeFrom);
    takeFrom(loose);
}

void BracketArrangement::arrangeAs(const QList<QStringList> &groups, const QStringList &loosePaths)
{
    QHash<QString, Shot> taken;
    const auto shotsAt = [&taken](const QStringList &paths) {
        Shots shots;
        for (const QString &path : paths) {
            if (taken.contains(path))
                shots.push_back(taken.take(path));
        }
        return shots;
    };
    for (const QStringList &group : groups) {
        takeOutAll(group, taken);
        brackets += shotsAt(group);
    }
    takeOutAll(loosePaths, taken);
    append(loose, shotsAt(loosePaths));
    dissolveSmallOnes();
    std::stable_sort(brackets.begin(), brackets.end(), [](const Shots &one, const Shots &other) {
        return timeOf(one.front()) < timeOf(other.front());
    });
}

void BracketArrangement::dissolveSmallOnes()
{
    for (const Shots &shots : std::as_const(brackets)) {
        if (shots.size() < kFewestShots)
            append(loose, shots);
    }
    brackets.removeIf([](const Shots &shots) { return shots.size() < kFewestShots; });
    putInOrder(loose);
}
