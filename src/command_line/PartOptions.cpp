#include "PartOptions.h"

#include "picture_arguments.h"
#include "stroke_text.h"

#include <QFileInfo>

#include <algorithm>

namespace {

/// Index of the shot that a word names, by its path or its place from 1 on; -1 for none.
int shotOf(const QString &word, const QStringList &pictures)
{
    const int named = command_line::indexOfPicture(word, pictures);
    if (named >= 0)
        return named;
    bool isNumber = false;
    const int place = word.toInt(&isNumber);
    return isNumber && place >= 1 && place <= pictures.size() ? place - 1 : -1;
}

/// Of "SHOT=MASK"; both names may contain "=". No mask when it is not that.
TakeFile takeIn(const QString &text, const QStringList &pictures)
{
    for (auto at = text.indexOf(u'='); at >= 0; at = text.indexOf(u'=', at + 1)) {
        const int shot = shotOf(text.left(at), pictures);
        if (shot >= 0)
            return {shot, text.mid(at + 1)};
    }
    return {};
}

} // namespace

void PartOptions::addTo(QCommandLineParser &parser) const
{
    parser.addOptions(both);
}

QString PartOptions::read(const QCommandLineParser &parser, MergeOptions &options) const
{
    const QStringList takes = parser.values(take);
    for (const QString &text : takes) {
        options.takes += takeIn(text, options.pictures);
        if (options.takes.last().mask.isEmpty())
            return QStringLiteral(
                "--take takes one of the pictures or its place, \"=\" and a mask");
    }
    if (!parser.isSet(paint))
        return {};
    const std::optional<brush::Strokes> strokes = brush::fromText(parser.value(paint));
    if (!strokes)
        return QStringLiteral("--paint takes strokes, such as 2:40:100,80,15,0 or 2@100,80");
    const auto isOfNoShot = [&options](const brush::Stroke &stroke) {
        return stroke.shot >= options.pictures.size();
    };
    if (std::any_of(strokes->begin(), strokes->end(), isOfNoShot))
        return QStringLiteral("--paint has a stroke of a picture that is not there");
    options.strokes = *strokes;
    return {};
}

QStringList command_line::wordsOfParts(const MergeOptions &options)
{
    QStringList words;
    for (const TakeFile &take : options.takes)
        words += QStringLiteral("--take %1=").arg(take.shot + 1) + QFileInfo(take.mask).fileName();
    const QString strokes = brush::toText(options.strokes);
    if (!strokes.isEmpty() && strokes.size() <= brush::kMostMarkText)
        words += QStringLiteral("--paint ") + strokes;
    return words;
}
