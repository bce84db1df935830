#pragma once

#include <Stroke.h>

#include <QString>
#include <QStringList>

#include <vector>

/// What was painted, stroke by stroke, with shots by their paths: who takes part and in which order
/// may change. A value.
class StrokeBook
{
public:
    /// path: of the shot that the stroke is from; empty for an erasing one.
    void add(const QString &path, const brush::Stroke &stroke);
    /// Takes all strokes away, as a step that can be undone.
    void clear();
    void undo();
    bool canUndo() const { return !entries.empty(); }

    /// The strokes of these shots, which they name by their places; and the erasing ones.
    brush::Strokes strokesOf(const QStringList &paths) const;
    /// The same the other way round, with nothing to undo but the strokes.
    void setStrokes(const brush::Strokes &strokes, const QStringList &paths);

private:
    struct Entry
    {
        QString path;
        brush::Stroke stroke; ///< without points: all before are taken away
    };

    std::vector<Entry> entries;
};
