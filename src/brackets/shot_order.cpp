#include "shot_order.h"

#include "natural_order.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace {

constexpr double kMinute = 60;
constexpr double kHour = 3600;

auto kindOf(const Shot &shot)
{
    return std::make_tuple(shot.model, shot.serial, shot.size.width(), shot.size.height(),
                           shot.orientation);
}

bool isSameKind(const Shot &one, const Shot &other)
{
    return one.size == other.size && one.orientation == other.orientation &&
           one.model == other.model && one.serial == other.serial;
}

/// A shot with its name as sorting needs it: comparing the texts is slow.
struct Keyed
{
    Shot shot;
    QString stem; ///< without the last number
    qint64 number = -1;
};

Keyed keyed(Shot shot)
{
    Keyed key;
    const QString name = QFileInfo(shot.path).completeBaseName();
    qsizetype end = name.size();
    while (end > 0 && !name[end - 1].isDigit())
        --end;
    qsizetype begin = end;
    while (begin > 0 && name[begin - 1].isDigit())
        --begin;
    constexpr qsizetype kMostDigits = 15;
    const bool hasNumber = begin < end && end - begin <= kMostDigits;
    key.stem = hasNumber ? name.left(begin) + name.mid(end) : name;
    key.number = hasNumber ? name.mid(begin, end - begin).toLongLong() : -1;
    key.shot = std::move(shot);
    return key;
}

bool isBeforeByName(const Keyed &one, const Keyed &other)
{
    if (one.stem == other.stem && one.number >= 0 && one.number != other.number)
        return one.number < other.number;
    return brackets::isBeforeNaturally(one.shot.path, other.shot.path);
}

bool isBeforeByTime(const Keyed &one, const Keyed &other)
{
    return one.shot.takenAt != other.shot.takenAt ? one.shot.takenAt < other.shot.takenAt
                                                  : isBeforeByName(one, other);
}

/// How often the clock goes back from one shot to the next.
qsizetype stepsBack(const std::vector<Keyed> &shots)
{
    qsizetype steps = 0;
    for (size_t i = 1; i < shots.size(); ++i)
        steps += shots[i].shot.takenAt < shots[i - 1].shot.takenAt ? 1 : 0;
    return steps;
}

/// A clock that is set back makes one step back; renamed files make one at every other shot. Within
/// a second some cameras number their shots in another order than they tell.
void putInOrder(std::vector<Keyed> &shots)
{
    std::stable_sort(shots.begin(), shots.end(), isBeforeByName);
    const auto mostSteps = std::max<qsizetype>(1, qsizetype(shots.size()) / 100);
    const qsizetype steps = stepsBack(shots);
    if (steps == 0 || (steps <= mostSteps && shots.size() > 8))
        return;
    std::stable_sort(shots.begin(), shots.end(), isBeforeByTime);
}

/// All on the full minute: that is no chance with so many.
bool tellsMinutesOnly(const std::vector<Keyed> &shots)
{
    constexpr size_t kFewest = 4;
    return shots.size() >= kFewest && std::all_of(shots.begin(), shots.end(), [](const Keyed &key) {
               const QTime time = key.shot.takenAt.time();
               return time.second() == 0 && time.msec() == 0;
           });
}

brackets::Sequence sequenceOf(std::vector<Keyed> shots)
{
    putInOrder(shots);
    brackets::Sequence sequence;
    sequence.clockSeconds = tellsMinutesOnly(shots) ? kMinute : 0;
    for (Keyed &key : shots)
        sequence.shots.push_back(std::move(key.shot));
    return sequence;
}

/// IMG_0007 after IMG_0006.
bool followsByNumber(const Shot &one, const Shot &other)
{
    const Keyed first = keyed(one);
    const Keyed second = keyed(other);
    return first.stem == second.stem && first.number >= 0 && second.number == first.number + 1;
}

} // namespace

std::vector<brackets::Sequence> brackets::inSequences(std::vector<Shot> shots)
{
    std::stable_sort(shots.begin(), shots.end(), [](const Shot &one, const Shot &other) {
        return !isSameKind(one, other) && kindOf(one) < kindOf(other);
    });
    std::vector<Sequence> sequences;
    for (size_t begin = 0; begin < shots.size();) {
        std::vector<Keyed> kind;
        size_t end = begin;
        for (; end < shots.size() && isSameKind(shots[begin], shots[end]); ++end)
            kind.push_back(keyed(shots[end]));
        sequences.push_back(sequenceOf(std::move(kind)));
        begin = end;
    }
    return sequences;
}

double brackets::pauseAfter(const Sequence &sequence, size_t i)
{
    const Shot &one = sequence.shots[i];
    const Shot &other = sequence.shots[i + 1];
    double seconds = double(one.takenAt.msecsTo(other.takenAt)) / 1000;
    const double hours = std::round(seconds / kHour);
    const bool isJump = std::abs(hours) == 1 && std::abs(seconds - hours * kHour) < kMinute;
    if (isJump && followsByNumber(one, other))
        seconds -= hours * kHour;
    // Clocks of two parts, seconds and fraction, may disagree by one.
    constexpr double kClockError = 1;
    if (seconds < -kClockError)
        return std::numeric_limits<double>::infinity();
    return std::max(0.0, seconds - one.exposureSeconds - sequence.clockSeconds);
}
