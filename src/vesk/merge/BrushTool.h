#pragma once

#include "StrokeBook.h"

#include <QObject>
#include <QPoint>

class BrushBar;
class BrushLayer;
class MergePreview;
class QImage;

/// Painting over the preview which shot a part comes from: joins the bar, what lies over the
/// preview, and what was painted. GUI thread.
class BrushTool : public QObject
{
    Q_OBJECT

public:
    /// Both are borrowed.
    BrushTool(MergePreview *preview, BrushBar *bar, QObject *parent = nullptr);

    /// The shots that are on, in merge order. Strokes of others wait until theirs are back.
    void setShots(const QStringList &paths);
    void chooseShot(const QString &path);
    /// See BrushLayer.
    void setStart(QPoint start);
    void setMoved(const QImage &mask);
    void setUsable(bool isUsable);

    /// Shots by their places among setShots.
    brush::Strokes strokes() const;
    void setStrokes(const brush::Strokes &strokes);
    /// For good.
    void forget();

Q_SIGNALS:
    /// Strokes are others.
    void changed();

private:
    void add(const brush::Stroke &stroke);
    void undo();
    void clear();
    void onStrokesChanged();
    void updateBrush();

    MergePreview *preview;
    BrushBar *bar;
    BrushLayer *layer; // the preview's child
    StrokeBook book;
    QStringList shots;
};
