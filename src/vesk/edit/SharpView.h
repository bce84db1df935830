#pragma once

#include <QObject>
#include <QThreadPool>
#include <QTimer>

class VeskCanvas;

/// Shows a document below actual size as sharp as the screen allows, once its view is at rest: each
/// pixel is the mean of all pixels that it covers. Made beside the GUI thread. The canvas owns it.
/// GUI thread.
class SharpView : public QObject
{
    Q_OBJECT

public:
    explicit SharpView(VeskCanvas *canvas);
    ~SharpView() override;

private:
    void render();

    VeskCanvas *canvas;
    QTimer rest;
    int asked = 0;
    QThreadPool worker; // one thread
};
