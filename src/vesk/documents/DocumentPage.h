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
    /// Null while it holds none.
    VeskCanvas *canvas() const;

Q_SIGNALS:
    /// The user is at work on the canvas.
    void touched();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<VeskContext> shown;
};
