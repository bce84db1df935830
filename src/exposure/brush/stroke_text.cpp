#include "stroke_text.h"

#include <QStringList>

#include <cstdlib>

namespace {

using brush::Stroke;
using brush::Strokes;

constexpr int kMostShots = 64;
constexpr int kFarthest = 1 << 24; ///< of a number of pixels
constexpr qsizetype kMostText = 1 << 22;

std::optional<int> numberIn(QStringView word, int least, int most)
{
    bool isNumber = false;
    const int number = word.toInt(&isNumber);
    return isNumber && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

/// Points from "X,Y,DX,DY,...": none when that is not what it is.
std::vector<QPoint> pointsIn(QStringView text)
{
    const QList<QStringView> words = text.split(u',');
    if (words.size() % 2 != 0)
        return {};
    std::vector<QPoint> points;
    for (qsizetype i = 0; i < words.size(); i += 2) {
        const std::optional<int> x = numberIn(words[i], -kFarthest, kFarthest);
        const std::optional<int> y = numberIn(words[i + 1], -kFarthest, kFarthest);
        if (!x || !y)
            return {};
        const QPoint point = QPoint(*x, *y) + (points.empty() ? QPoint() : points.back());
        if (std::abs(point.x()) > kFarthest || std::abs(point.y()) > kFarthest)
            return {};
        points.push_back(point);
    }
    return points;
}

std::optional<Stroke> thingIn(QStringView text)
{
    const QList<QStringView> words = text.split(u'@');
    const std::optional<int> shot = numberIn(words[0], 1, kMostShots);
    Stroke stroke;
    if (words.size() == 2)
        stroke.points = pointsIn(words[1]);
    if (!shot || stroke.points.size() != 1)
        return {};
    stroke.shot = *shot - 1;
    return stroke;
}

std::optional<Stroke> strokeIn(QStringView text)
{
    if (text.contains(u'@'))
        return thingIn(text);
    const QList<QStringView> words = text.split(u':');
    if (words.size() != 3)
        return {};
    const std::optional<int> shot = numberIn(words[0], 0, kMostShots);
    const std::optional<int> radius = numberIn(words[1], 1, kFarthest);
    Stroke stroke;
    stroke.points = pointsIn(words[2]);
    if (!shot || !radius || stroke.points.empty())
        return {};
    stroke.shot = *shot - 1;
    stroke.radius = *radius;
    return stroke;
}

QString textOf(const Stroke &stroke)
{
    QStringList numbers;
    QPoint last;
    for (const QPoint &point : stroke.points) {
        const QPoint step = point - last;
        numbers += QString::number(step.x());
        numbers += QString::number(step.y());
        last = point;
    }
    const QString points = numbers.join(u',');
    if (stroke.isThing())
        return QStringLiteral("%1@%2").arg(stroke.shot + 1).arg(points);
    return QStringLiteral("%1:%2:%3").arg(stroke.shot + 1).arg(stroke.radius).arg(points);
}

} // namespace

QString brush::toText(const Strokes &strokes)
{
    QStringList words;
    for (const Stroke &stroke : strokes)
        words += textOf(stroke);
    return words.join(u'+');
}

std::optional<brush::Strokes> brush::fromText(const QString &text)
{
    if (text.size() > kMostText)
        return {};
    Strokes strokes;
    const QList<QStringView> words = QStringView(text).split(u'+');
    for (const QStringView word : words) {
        std::optional<Stroke> stroke = strokeIn(word);
        if (!stroke)
            return {};
        strokes.push_back(std::move(*stroke));
    }
    return strokes;
}
