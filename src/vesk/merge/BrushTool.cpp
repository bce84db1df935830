#include "BrushTool.h"
#include "BrushBar.h"
#include "BrushLayer.h"
#include "MergePreview.h"

#include <QFileInfo>

#include <algorithm>

BrushTool::BrushTool(MergePreview *shownPreview, BrushBar *brushBar, QObject *parent)
    : QObject(parent)
    , preview(shownPreview)
    , bar(brushBar)
    , layer(new BrushLayer(shownPreview))
{
    connect(layer, &BrushLayer::painted, this, &BrushTool::add);
    connect(bar, &BrushBar::toggled, layer, &QWidget::setVisible);
    connect(bar, &BrushBar::changed, this, &BrushTool::updateBrush);
    connect(bar, &BrushBar::undoWanted, this, &BrushTool::undo);
    connect(bar, &BrushBar::clearWanted, this, &BrushTool::clear);
    connect(preview, &MergePreview::zoomChanged, this, &BrushTool::updateBrush);
}

void BrushTool::setShots(const QStringList &paths)
{
    if (paths == shots)
        return;
    shots = paths;
    QStringList names;
    for (const QString &path : paths)
        names += QFileInfo(path).fileName();
    bar->setShots(names);
    onStrokesChanged();
}

void BrushTool::chooseShot(const QString &path)
{
    bar->chooseShot(int(shots.indexOf(path)));
}

void BrushTool::setStart(QPoint start)
{
    layer->setStart(start);
}

void BrushTool::setMoved(const QImage &mask)
{
    layer->setMoved(mask);
}

void BrushTool::setUsable(bool isUsable)
{
    bar->setUsable(isUsable);
}

brush::Strokes BrushTool::strokes() const
{
    return book.strokesOf(shots);
}

void BrushTool::setStrokes(const brush::Strokes &strokes)
{
    book.setStrokes(strokes, shots);
    onStrokesChanged();
}

void BrushTool::forget()
{
    book = {};
    onStrokesChanged();
}

void BrushTool::add(const brush::Stroke &stroke)
{
    book.add(shots.value(stroke.shot), stroke);
    onStrokesChanged();
    Q_EMIT changed();
}

void BrushTool::undo()
{
    book.undo();
    onStrokesChanged();
    Q_EMIT changed();
}

void BrushTool::clear()
{
    book.clear();
    onStrokesChanged();
    Q_EMIT changed();
}

void BrushTool::onStrokesChanged()
{
    const brush::Strokes painted = strokes();
    layer->setStrokes(painted);
    bar->setPainted(!painted.empty(), book.canUndo());
}

void BrushTool::updateBrush()
{
    const QSize size = preview->viewPlace().picture();
    const double diameter = bar->diameter() * std::max(size.width(), size.height());
    layer->setBrush(bar->shot(), std::max(1, qRound(diameter / 2)), bar->isErasing());
}
