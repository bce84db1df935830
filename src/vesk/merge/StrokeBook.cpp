#include "StrokeBook.h"

void StrokeBook::add(const QString &path, const brush::Stroke &stroke)
{
    entries.push_back({path, stroke});
}

void StrokeBook::clear()
{
    entries.push_back({});
}

void StrokeBook::undo()
{
    if (canUndo())
        entries.pop_back();
}

brush::Strokes StrokeBook::strokesOf(const QStringList &paths) const
{
    brush::Strokes strokes;
    for (const Entry &entry : entries) {
        const bool isErasing = entry.path.isEmpty();
        if (entry.stroke.points.empty())
            strokes.clear();
        else if (isErasing || paths.contains(entry.path)) {
            strokes.push_back(entry.stroke);
            strokes.back().shot = isErasing ? brush::kErase : int(paths.indexOf(entry.path));
        }
    }
    return strokes;
}

void StrokeBook::setStrokes(const brush::Strokes &strokes, const QStringList &paths)
{
    entries.clear();
    for (const brush::Stroke &stroke : strokes)
        if (stroke.shot < paths.size())
            add(paths.value(stroke.shot), stroke);
}
