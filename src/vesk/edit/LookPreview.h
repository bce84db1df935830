#pragma once

#include <LightMap.h>
#include <Look.h>

#include <QImage>
#include <QThreadPool>
#include <QWidget>

#include <atomic>
#include <memory>

class VeskCanvas;

/// Lies over a canvas and shows what a look would make of its picture, as large as the screen needs
/// it: the pixels in view are reduced once, and each look is laid on those, beside the GUI thread.
/// Only the last look asked for is shown. Lets the mouse through. The canvas owns it. GUI thread.
class LookPreview : public QWidget
{
    Q_OBJECT

public:
    explicit LookPreview(VeskCanvas *canvas);
    ~LookPreview() override;

    /// The picture without a look, and the look. Shows itself when the first answer is there.
    void show(const QImage &picture, const exposure::Look &look);
    /// Gets ready for that picture in the present view, without showing anything.
    void prepare(const QImage &picture);
    /// The document shows the look itself now.
    void end();
    bool isUnderWay() const { return isWanted; }
    const QImage &shown() const { return answer; }

Q_SIGNALS:
    void ready();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    /// What of the picture is in view, and where on the screen.
    struct View
    {
        QRect pixels; ///< of the document
        QSize size;   ///< of the preview, device pixels; not more than the pixels
        QRectF place; ///< in the widget
        bool operator==(const View &other) const
        {
            return pixels == other.pixels && size == other.size && place == other.place;
        }
    };

    /// With what only the worker uses.
    struct Prepared
    {
        qint64 key = 0;
        QRect pixels;
        QSize size;
        QImage small; ///< adjustable
        qint64 mapKey = 0;
        std::unique_ptr<exposure::LightMap> map;
    };

    View view() const;
    void request(bool isForShow);
    static void makeReady(Prepared &prepared, const QImage &picture, const View &view);
    void take(const QImage &picture, const View &view);

    VeskCanvas *canvas;
    QImage source;
    exposure::Look wanted;
    bool isWanted = false;
    QImage answer; // in the screen's colours
    View answerView;
    View askedView;
    int round = 0; // answers for an earlier one are stale
    std::shared_ptr<std::atomic<int>> latest;
    std::shared_ptr<Prepared> prepared;
    QThreadPool worker; // one thread
};
