#pragma once

#include "veskcore_export.h"

#include <QObject>
#include <QRect>

/// What the user has selected of a document: a rectangle of pixels, or nothing. Owned by
/// the context it is set on. GUI thread.
///
/// A tool calls the constructor.
class VESKCORE_EXPORT VeskSelection : public QObject
{
    Q_OBJECT

public:
    /// Nothing selected, in a document of width x height pixels. Negative lengths count as 0.
    VeskSelection(QObject *parent, int width, int height);

    /// Size of the document in pixels.
    int getWidth() const { return documentSize.width(); }
    int getHeight() const { return documentSize.height(); }

    bool isEmpty() const { return selected.isEmpty(); }
    /// Selected pixels, always inside the document; empty when nothing is selected.
    QRect getRect() const { return selected; }
    /// Selects what of rect lies inside the document.
    void setRect(const QRect &rect);
    void selectAll();
    void clear();

Q_SIGNALS:
    void changed(const QRect &rect);

private:
    QSize documentSize;
    QRect selected;
};
