#pragma once

#include "RegionRenderer.h"
#include "ViewPlace.h"

#include <QWidget>

/// A merged picture at full size, before its look.
struct SharpPicture
{
    QImage merged;
    QImage before; ///< the reference, cut to the same area
};

/// Shows what a merge would give: a small copy of it at once, and the picture itself where one
/// looks closely, as soon as there is one. Beside it, or in its place, the picture before; a single
/// shot; what is clipped. Or a text where there is no picture. The wheel zooms, dragging pans,
/// a double click changes between the whole and 100 %. GUI thread.
class MergePreview : public QWidget
{
    Q_OBJECT

public:
    explicit MergePreview(QWidget *parent = nullptr);

    /// In the screen's colours; null for none. fullSize: of the picture that it is a copy of.
    /// clipping: see clipping::marks.
    void setAfter(const QImage &picture, QSize fullSize = {}, const QImage &clipping = {});
    void setBefore(const QImage &picture);
    /// What is merged at full size, or nothing, when it is another picture from now on.
    void setSharp(const SharpPicture &picture);
    void setLook(const exposure::Look &look);
    bool isSharp() const { return !sharp.merged.isNull(); }
    /// Whether more is to be seen than the small copy has.
    bool isSharpWanted() const;

    void showBefore(bool isBefore);
    bool isShowingBefore() const { return isBeforeShown; }
    void setSplit(bool isOn);
    /// Share of the width that shows the picture before.
    void setSplitPlace(double place);
    double splitPlace() const { return split; }
    void setClippingShown(bool isOn);
    void setLoupe(bool isOn);
    /// A shot in place of the merged picture, and what it is called; null for none.
    void showShot(const QImage &shot, const QString &name);

    void zoomToFit();
    void zoomTo(double zoom);
    double zoom() const { return place.zoom(); }
    bool isFit() const { return place.isFit(); }

    /// Said while there is no picture.
    void setText(const QString &text);
    const QString &text() const { return said; }
    /// What is shown now, as the small copy has it.
    const QImage &shown() const;
    /// What is shown sharply now; its area is empty when nothing is.
    const RegionPicture &sharpRegion() const { return region; }
    /// Where the picture lies in the widget.
    const ViewPlace &viewPlace() const { return place; }

    QSize sizeHint() const override;

Q_SIGNALS:
    void zoomChanged();
    /// isSharpWanted() is another.
    void sharpWantedChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    enum class Drag { None, Pan, Split };

    void onPlaceChanged();
    void refreshSharp();
    void refreshLoupe();
    void paintPicture(QPainter &painter);
    void paintLayer(QPainter &painter, const QImage &small, const QImage &sharpPart) const;
    void paintSplitLine(QPainter &painter) const;
    void paintLoupe(QPainter &painter) const;
    void paintLabel(QPainter &painter, const QString &text) const;
    bool isOnSplitLine(QPointF position) const;

    ViewPlace place;
    QImage after;
    QImage before;
    QImage marks;
    QImage shot;
    QString shotName;
    QString said;
    SharpPicture sharp;
    exposure::Look look;
    RegionPicture region;
    RegionPicture magnified;
    RegionRenderer renderer;
    RegionRenderer loupeRenderer;
    QPointF pointer;
    QPointF lastDrag;
    Drag drag = Drag::None;
    double split = 0.5;
    bool wasSharpWanted = false;
    bool isBeforeShown = false;
    bool isSplit = false;
    bool isClippingShown = false;
    bool isLoupe = false;
};
