#pragma once

#include <QPointer>
#include <QWidget>

class VeskCanvas;
class VeskContext;

/// What a tab shows of a document: its canvas, filling the page. The page owns the canvas until
/// another page holds it. GUI thread.
class DocumentPage : public QWidget
{
    Q_OBJECT

public:
    explicit DocumentPage(VeskContext *context);

    VeskContext *context() const;
    /// Takes canvas (null for none) from wherever it was.
    void hold(VeskCanvas *canvas);

private:
    QPointer<VeskContext> shown;
};
