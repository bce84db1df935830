#pragma once

#include <QPointer>
#include <QStatusBar>

class QLabel;
class QProgressBar;
class VeskCanvas;

/// Size, zoom and the colour under the pointer of the canvas in front, in the numbers of its
/// document (0 to 255, or to 65535 where it has 16 bits), and what is being loaded. GUI thread.
class EditorStatusBar : public QStatusBar
{
    Q_OBJECT

public:
    explicit EditorStatusBar(QWidget *parent = nullptr);

    /// Null for none.
    void showCanvas(VeskCanvas *canvas);
    /// A sign of life while files are read; position counts from 1.
    void showLoading(const QString &name, int position, int total);
    void hideLoading();

private:
    void showZoom();
    void showPointer(const QPoint &pixel, const QColor &color);

    QPointer<VeskCanvas> shown;
    QLabel *loadingText;
    QProgressBar *loadingBar;
    QLabel *pointer;
    QLabel *swatch;
    QLabel *size;
    QLabel *zoom;
};
